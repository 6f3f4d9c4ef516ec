<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>workbench::TWindowStatus</name>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>%n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n selected</source>
        <translation>
            <numerusform>, %n selected</numerusform>
            <numerusform>, %n selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n warning</numerusform>
            <numerusform>%n warnings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TProjectEdits</name>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>%n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TTargetBar</name>
    <message numerus="yes">
        <source>answers %n minute(s) old</source>
        <translation>
            <numerusform>answers %n minute old</numerusform>
            <numerusform>answers %n minutes old</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>workbench::TFilterBar</name>
    <message numerus="yes">
        <source>%1 of %n file(s)</source>
        <translation>
            <numerusform>%1 of %n file</numerusform>
            <numerusform>%1 of %n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TDetails</name>
    <message numerus="yes">
        <source>%n files are selected</source>
        <translation>
            <numerusform>%n file is selected</numerusform>
            <numerusform>%n files are selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them are missing here</source>
        <translation>
            <numerusform>%n of them is missing here</numerusform>
            <numerusform>%n of them are missing here</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>workbench::TDeploymentView</name>
    <message numerus="yes">
        <source>%n problem(s)</source>
        <translation>
            <numerusform>%n problem</numerusform>
            <numerusform>%n problems</numerusform>
        </translation>
    </message>
</context>
</TS>
