<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Engine</name>
    <message>
        <source>the step &quot;runtime packages&quot; %1: %2</source>
        <translation>der Schritt „Laufzeitpakete“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;project output&quot; %1: %2</source>
        <translation>der Schritt „Projektausgabe“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;debug symbols&quot; %1: %2</source>
        <translation>der Schritt „Debugsymbole“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;OS X defaults&quot; %1: %2</source>
        <translation>der Schritt „Vorgaben für OS X“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;iOS defaults&quot; %1: %2</source>
        <translation>der Schritt „Vorgaben für iOS“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;Android defaults&quot; %1: %2</source>
        <translation>der Schritt „Vorgaben für Android“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;artwork&quot; %1: %2</source>
        <translation>der Schritt „Bilder“ %1: %2</translation>
    </message>
    <message>
        <source>the step &quot;project files&quot; %1: %2</source>
        <translation>der Schritt „Projektdateien“ %1: %2</translation>
    </message>
    <message>
        <source>somebody else deploys there: %1 on %2 (process %3), since %4; --break-lock goes on all the same</source>
        <translation>jemand anderes verteilt gerade dorthin: %1 auf %2 (Prozess %3), seit %4; --break-lock macht trotzdem weiter</translation>
    </message>
    <message>
        <source>somebody else deploys there: %1 on %2, since %3; --break-lock goes on all the same</source>
        <translation>jemand anderes verteilt gerade dorthin: %1 auf %2, seit %3; --break-lock macht trotzdem weiter</translation>
    </message>
    <message>
        <source>somebody on a machine that it does not name</source>
        <translation>jemand auf einem Rechner, der nicht genannt ist</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keins</translation>
    </message>
    <message>
        <source>the name of the profile is empty</source>
        <translation>der Name des Profils fehlt</translation>
    </message>
    <message>
        <source>the name of the group is empty</source>
        <translation>der Name der Gruppe fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the name of a group</source>
        <translation>„%1“ kann nicht der Name einer Gruppe sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the name of a profile: a comma stands between names</source>
        <translation>„%1“ kann nicht der Name eines Profils sein: ein Komma steht zwischen Namen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the name of a group: a comma stands between names</source>
        <translation>„%1“ kann nicht der Name einer Gruppe sein: ein Komma steht zwischen Namen</translation>
    </message>
    <message>
        <source>adds it</source>
        <translation>nimmt sie auf</translation>
    </message>
    <message>
        <source>adds it as &quot;%1&quot;</source>
        <translation>nimmt sie als „%1“ auf</translation>
    </message>
    <message>
        <source>adds it of class &quot;%1&quot;</source>
        <translation>nimmt sie der Klasse „%1“ auf</translation>
    </message>
    <message>
        <source>brings it up to date</source>
        <translation>bringt sie auf den neuesten Stand</translation>
    </message>
    <message>
        <source>brings it up to date as &quot;%1&quot;</source>
        <translation>bringt sie als „%1“ auf den neuesten Stand</translation>
    </message>
    <message>
        <source>keeps it</source>
        <translation>behält sie</translation>
    </message>
    <message>
        <source>keeps it as &quot;%1&quot;</source>
        <translation>behält sie als „%1“</translation>
    </message>
    <message>
        <source>removes it</source>
        <translation>nimmt sie heraus</translation>
    </message>
    <message>
        <source>removes it as &quot;%1&quot;</source>
        <translation>nimmt sie als „%1“ heraus</translation>
    </message>
    <message>
        <source>makes no entry</source>
        <translation>legt keinen Eintrag an</translation>
    </message>
    <message>
        <source>makes no entry of class &quot;%1&quot;</source>
        <translation>legt keinen Eintrag der Klasse „%1“ an</translation>
    </message>
    <message>
        <source>does not run</source>
        <translation>läuft nicht</translation>
    </message>
    <message>
        <source>it names nothing</source>
        <translation>sie nennt nichts</translation>
    </message>
    <message>
        <source>the IDE ships it</source>
        <translation>die IDE liefert sie mit</translation>
    </message>
    <message>
        <source>it is switched off</source>
        <translation>sie ist ausgeschaltet</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>es gibt diese Datei nicht</translation>
    </message>
    <message>
        <source>it is not named there any more</source>
        <translation>sie wird dort nicht mehr genannt</translation>
    </message>
    <message>
        <source>the project builds this file itself</source>
        <translation>das Projekt erzeugt diese Datei selbst</translation>
    </message>
    <message>
        <source>it was built for something else</source>
        <translation>sie wurde für etwas anderes gebaut</translation>
    </message>
    <message>
        <source>it was not found anywhere</source>
        <translation>sie wurde nirgends gefunden</translation>
    </message>
    <message>
        <source>the host cannot be asked</source>
        <translation>die Umgebung kann nicht gefragt werden</translation>
    </message>
    <message>
        <source>the step does not work for this kind of program</source>
        <translation>der Schritt gilt nicht für diese Art von Programm</translation>
    </message>
    <message>
        <source>the step does not work for this platform</source>
        <translation>der Schritt gilt nicht für diese Plattform</translation>
    </message>
    <message>
        <source>files of this extension are not deployed</source>
        <translation>Dateien dieser Endung werden nicht verteilt</translation>
    </message>
    <message>
        <source>such devices do not show it</source>
        <translation>solche Geräte zeigen sie nicht</translation>
    </message>
    <message>
        <source>one file has one entry</source>
        <translation>eine Datei hat einen Eintrag</translation>
    </message>
    <message>
        <source>no step has anything to do</source>
        <translation>kein Schritt hat etwas zu tun</translation>
    </message>
    <message>
        <source>the target is &quot;%1&quot;</source>
        <translation>das Ziel ist „%1“</translation>
    </message>
    <message>
        <source>the target is &quot;%1&quot;, the program is of kind &quot;%2&quot;</source>
        <translation>das Ziel ist „%1“, das Programm ist von der Art „%2“</translation>
    </message>
    <message>
        <source>a build makes &quot;%1&quot;</source>
        <translation>ein Build erzeugt „%1“</translation>
    </message>
    <message>
        <source>it belongs beside the output &quot;%1&quot;</source>
        <translation>sie gehört neben die Ausgabe „%1“</translation>
    </message>
    <message>
        <source>the list of runtime packages</source>
        <translation>die Liste der Laufzeitpakete</translation>
    </message>
    <message>
        <source>the list of runtime packages names &quot;%1&quot;</source>
        <translation>die Liste der Laufzeitpakete nennt „%1“</translation>
    </message>
    <message>
        <source>the symbol files of &quot;%1&quot; have the extension &quot;%2&quot;</source>
        <translation>die Symboldateien von „%1“ haben die Endung „%2“</translation>
    </message>
    <message>
        <source>the option &quot;%1&quot; is &quot;%2&quot;</source>
        <translation>die Option „%1“ ist „%2“</translation>
    </message>
    <message>
        <source>the development kit of the platform</source>
        <translation>das Entwicklungspaket der Plattform</translation>
    </message>
    <message>
        <source>the development kit &quot;%1&quot; names &quot;%2&quot;</source>
        <translation>das Entwicklungspaket „%1“ nennt „%2“</translation>
    </message>
    <message>
        <source>the IDE ships it; the option &quot;%1&quot; is &quot;%2&quot;</source>
        <translation>die IDE liefert sie mit; die Option „%1“ ist „%2“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a file of the name, but &quot;%2&quot;</source>
        <translation>„%1“ ist eine Datei dieses Namens, aber „%2“</translation>
    </message>
    <message>
        <source>it belongs to &quot;%1&quot;, in the language &quot;%2&quot;</source>
        <translation>sie gehört zu „%1“, in der Sprache „%2“</translation>
    </message>
    <message>
        <source>it belongs to the project</source>
        <translation>sie gehört zum Projekt</translation>
    </message>
    <message>
        <source>the file is the entry of class &quot;%1&quot;</source>
        <translation>die Datei ist der Eintrag der Klasse „%1“</translation>
    </message>
    <message>
        <source>no step of a reconcile for this target asks for it</source>
        <translation>kein Schritt des Abgleichs für dieses Ziel verlangt sie</translation>
    </message>
    <message>
        <source>the build installs it: %1</source>
        <translation>der Build installiert sie: %1</translation>
    </message>
    <message>
        <source>the build installed it when the list was made; which rule that was it does not tell now: %1</source>
        <translation>der Build installierte sie, als die Liste entstand; welche Regel das war, sagt er jetzt nicht: %1</translation>
    </message>
    <message>
        <source>it is switched off for %1, so a deploy leaves it out</source>
        <translation>sie ist für %1 ausgeschaltet, daher lässt eine Verteilung sie aus</translation>
    </message>
    <message>
        <source>builds take it under the condition %1</source>
        <translation>Builds nehmen sie unter der Bedingung %1</translation>
    </message>
    <message>
        <source>there is no such file now: %1</source>
        <translation>es gibt diese Datei jetzt nicht: %1</translation>
    </message>
    <message>
        <source>it was added by hand</source>
        <translation>sie wurde von Hand hinzugefügt</translation>
    </message>
    <message>
        <source>a reconcile has nothing to say about all platforms at once; ask for one of them</source>
        <translation>ein Abgleich sagt nichts über alle Plattformen zugleich; fragen Sie nach einer von ihnen</translation>
    </message>
    <message>
        <source>no step of a reconcile works for &quot;Base&quot;: what stands there was put there</source>
        <translation>kein Schritt des Abgleichs gilt für „Base“: was dort steht, wurde dort eingetragen</translation>
    </message>
    <message>
        <source>the project cannot be reconciled here, so the list is what was saved</source>
        <translation>das Projekt lässt sich hier nicht abgleichen, daher ist die Liste die gespeicherte</translation>
    </message>
    <message>
        <source>no step of a reconcile asks for it any more; what put it there leaves it in</source>
        <translation>kein Schritt des Abgleichs verlangt sie noch; was sie eingetragen hat, lässt sie stehen</translation>
    </message>
    <message>
        <source>it is an entry of &quot;%1&quot;, which every configuration inherits from</source>
        <translation>sie ist ein Eintrag von „%1“, wovon jede Konfiguration erbt</translation>
    </message>
    <message>
        <source>it is an entry of &quot;%1&quot;, which &quot;%2&quot; inherits from</source>
        <translation>sie ist ein Eintrag von „%1“, wovon „%2“ erbt</translation>
    </message>
    <message>
        <source>it is an entry of &quot;%1&quot;, which inherits from &quot;%2&quot;: it is shown here and deployed there</source>
        <translation>sie ist ein Eintrag von „%1“, das von „%2“ erbt: hier wird sie gezeigt, dort verteilt</translation>
    </message>
    <message>
        <source>no platform has it; &quot;deploymgr add -p all&quot; puts it on the list of every one</source>
        <translation>keine Plattform hat sie; „deploymgr add -p all“ setzt sie auf die Liste jeder Plattform</translation>
    </message>
    <message>
        <source>no step of a reconcile works for &quot;Base&quot;; &quot;deploymgr add -c Base&quot; puts it on the list of every configuration</source>
        <translation>kein Schritt des Abgleichs gilt für „Base“; „deploymgr add -c Base“ setzt sie auf die Liste jeder Konfiguration</translation>
    </message>
    <message>
        <source>the project cannot be reconciled here</source>
        <translation>das Projekt lässt sich hier nicht abgleichen</translation>
    </message>
    <message>
        <source>no step of a reconcile asks for it; &quot;deploymgr add&quot; puts it on the list</source>
        <translation>kein Schritt des Abgleichs verlangt sie; „deploymgr add“ setzt sie auf die Liste</translation>
    </message>
    <message>
        <source>ran, but cannot be removed: %1</source>
        <translation>lief, kann aber nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>was copied, but %1</source>
        <translation>wurde kopiert, aber %1</translation>
    </message>
    <message>
        <source>is there, but %1</source>
        <translation>ist da, aber %1</translation>
    </message>
    <message>
        <source>the run was interrupted</source>
        <translation>der Lauf wurde unterbrochen</translation>
    </message>
    <message>
        <source>somebody else deploys there: %1; --break-lock goes on all the same</source>
        <translation>jemand anderes verteilt gerade dorthin: %1; --break-lock macht trotzdem weiter</translation>
    </message>
    <message>
        <source>the record on the target is of a newer version of this program</source>
        <translation>die Aufzeichnung auf dem Ziel stammt von einer neueren Version dieses Programms</translation>
    </message>
    <message>
        <source>the target cannot remember deploys: %1</source>
        <translation>das Ziel kann sich Verteilungen nicht merken: %1</translation>
    </message>
    <message>
        <source>the record on the target is damaged and counts as none: %1</source>
        <translation>die Aufzeichnung auf dem Ziel ist beschädigt und gilt als keine: %1</translation>
    </message>
    <message>
        <source>the target cannot remember this deploy: %1</source>
        <translation>das Ziel kann sich diese Verteilung nicht merken: %1</translation>
    </message>
    <message>
        <source>the record on the target cannot be read any more: %1</source>
        <translation>die Aufzeichnung auf dem Ziel kann nicht mehr gelesen werden: %1</translation>
    </message>
    <message>
        <source>the record on the target could not be read: %1; deploy again</source>
        <translation>die Aufzeichnung auf dem Ziel konnte nicht gelesen werden: %1; verteilen Sie noch einmal</translation>
    </message>
    <message>
        <source>somebody else deployed there meanwhile; deploy again</source>
        <translation>jemand anderes hat inzwischen dorthin verteilt; verteilen Sie noch einmal</translation>
    </message>
    <message>
        <source>this deploy cannot be taken back: %1</source>
        <translation>diese Verteilung kann nicht zurückgenommen werden: %1</translation>
    </message>
    <message>
        <source>the target cannot remember the end of this deploy</source>
        <translation>das Ziel kann sich das Ende dieser Verteilung nicht merken</translation>
    </message>
    <message>
        <source>the command after the deploy, &quot;%1&quot;, was not run, since not all files are in place</source>
        <translation>der Befehl nach der Verteilung, „%1“, lief nicht, da nicht alle Dateien an ihrem Platz sind</translation>
    </message>
    <message>
        <source>the command after the deploy, &quot;%1&quot;, was not run to its end: %2</source>
        <translation>der Befehl nach der Verteilung, „%1“, lief nicht zu Ende: %2</translation>
    </message>
    <message>
        <source>the command after the deploy, &quot;%1&quot;, %2</source>
        <translation>der Befehl nach der Verteilung, „%1“, %2</translation>
    </message>
    <message>
        <source>there is no profile &quot;%1&quot; of the platform &quot;%2&quot; any more</source>
        <translation>es gibt kein Profil „%1“ der Plattform „%2“ mehr</translation>
    </message>
    <message>
        <source>the target keeps no record of deploys, so that none can be taken back</source>
        <translation>das Ziel zeichnet Verteilungen nicht auf, daher kann keine zurückgenommen werden</translation>
    </message>
    <message>
        <source>profile %1 (%2)</source>
        <translation>Profil %1 (%2)</translation>
    </message>
    <message>
        <source>%1 was %2 and is %3</source>
        <translation>%1 war %2 und ist %3</translation>
    </message>
    <message>
        <source>the profile</source>
        <translation>das Profil</translation>
    </message>
    <message>
        <source>the place of the profile &quot;%1&quot;</source>
        <translation>der Ort des Profils „%1“</translation>
    </message>
    <message>
        <source>the machine that the folder is on</source>
        <translation>der Rechner, auf dem der Ordner liegt</translation>
    </message>
    <message>
        <source>the host key of the target</source>
        <translation>der Host-Schlüssel des Ziels</translation>
    </message>
    <message>
        <source>the project assigns no profile to the platform &quot;%1&quot;, and the platform has no default one</source>
        <translation>das Projekt ordnet der Plattform „%1“ kein Profil zu, und die Plattform hat kein Standardprofil</translation>
    </message>
    <message>
        <source>there is no profile &quot;%1&quot;</source>
        <translation>es gibt kein Profil „%1“</translation>
    </message>
    <message>
        <source>the profile &quot;%1&quot; is one of the platform &quot;%2&quot;, not of &quot;%3&quot;</source>
        <translation>das Profil „%1“ gehört zur Plattform „%2“, nicht zu „%3“</translation>
    </message>
    <message>
        <source>%1 is not there and cannot be made</source>
        <translation>%1 ist nicht da und kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>it is no plan: %1</source>
        <translation>es ist kein Plan: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time</source>
        <translation>„%1“ ist keine Zeit</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no kind of a file</source>
        <translation>„%1“ ist keine Art von Datei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no path of a file</source>
        <translation>„%1“ ist kein Pfad einer Datei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action</source>
        <translation>„%1“ ist keine Aktion</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no state</source>
        <translation>„%1“ ist kein Zustand</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is nothing that is done with a file</source>
        <translation>„%1“ ist nichts, was mit einer Datei getan wird</translation>
    </message>
    <message>
        <source>it has no digest</source>
        <translation>ihm fehlt die Prüfsumme</translation>
    </message>
    <message>
        <source>its digest is another one: it was changed</source>
        <translation>seine Prüfsumme ist eine andere: es wurde geändert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be run: the machine runs no commands</source>
        <translation>„%1“ kann nicht laufen: der Rechner führt keine Befehle aus</translation>
    </message>
    <message>
        <source>cannot be run: the machine runs no commands</source>
        <translation>kann nicht laufen: der Rechner führt keine Befehle aus</translation>
    </message>
    <message>
        <source>cannot be said to %1</source>
        <translation>lässt sich %1 nicht sagen</translation>
    </message>
    <message>
        <source>the local command &quot;%1&quot; %2</source>
        <translation>der lokale Befehl „%1“ %2</translation>
    </message>
    <message>
        <source>what it replaces has %1 bytes, and no more than %2 are kept</source>
        <translation>was sie ersetzt, hat %1 Bytes, und mehr als %2 werden nicht behalten</translation>
    </message>
    <message>
        <source>its directory leads out of the profile&apos;s path now</source>
        <translation>ihr Verzeichnis führt jetzt aus dem Pfad des Profils hinaus</translation>
    </message>
    <message>
        <source>it cannot be examined: %1</source>
        <translation>sie kann nicht untersucht werden: %1</translation>
    </message>
    <message>
        <source>it was changed on the target since</source>
        <translation>sie wurde seitdem auf dem Ziel geändert</translation>
    </message>
    <message>
        <source>it was removed from the target since</source>
        <translation>sie wurde seitdem vom Ziel entfernt</translation>
    </message>
    <message>
        <source>what was kept of it is gone</source>
        <translation>was von ihr behalten wurde, ist weg</translation>
    </message>
    <message>
        <source>the target remembers no deploys: %1</source>
        <translation>das Ziel merkt sich keine Verteilungen: %1</translation>
    </message>
    <message>
        <source>the target remembers no deploys</source>
        <translation>das Ziel merkt sich keine Verteilungen</translation>
    </message>
    <message>
        <source>the record on the target is damaged: %1</source>
        <translation>die Aufzeichnung auf dem Ziel ist beschädigt: %1</translation>
    </message>
    <message>
        <source>the target remembers no run &quot;%1&quot;; history lists those that it remembers</source>
        <translation>das Ziel merkt sich keinen Lauf „%1“; der Verlauf zeigt die gemerkten</translation>
    </message>
    <message>
        <source>it has no name of a run</source>
        <translation>es hat keinen Namen eines Laufs</translation>
    </message>
    <message>
        <source>the run %1 cannot be taken back: %2</source>
        <translation>der Lauf %1 kann nicht zurückgenommen werden: %2</translation>
    </message>
    <message>
        <source>somebody else deployed there meanwhile; try again</source>
        <translation>jemand anderes hat inzwischen dorthin verteilt; versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the target cannot remember what was taken back: %1</source>
        <translation>das Ziel kann sich nicht merken, was zurückgenommen wurde: %1</translation>
    </message>
    <message>
        <source>making a directory to unpack it here</source>
        <translation>Anlegen eines Verzeichnisses zum Auspacken</translation>
    </message>
    <message>
        <source>cannot be unpacked: it changed since it was copied</source>
        <translation>kann nicht ausgepackt werden: sie hat sich seit dem Kopieren geändert</translation>
    </message>
    <message>
        <source>cannot be unpacked: %1</source>
        <translation>kann nicht ausgepackt werden: %1</translation>
    </message>
    <message>
        <source>was unpacked in part: %1</source>
        <translation>wurde nur zum Teil ausgepackt: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; in it %2</source>
        <translation>„%1“ darin %2</translation>
    </message>
    <message>
        <source>has a name that the target cannot hold: it %1</source>
        <translation>hat einen Namen, den das Ziel nicht haben kann: er %1</translation>
    </message>
    <message>
        <source>is a link, and the target has none</source>
        <translation>ist eine Verknüpfung, und das Ziel kennt keine</translation>
    </message>
    <message>
        <source>has the name of &quot;%1&quot; for the target</source>
        <translation>hat für das Ziel den Namen von „%1“</translation>
    </message>
    <message>
        <source>cannot go there: %1</source>
        <translation>kann dort nicht hin: %1</translation>
    </message>
    <message>
        <source>a link of the target stands on the way</source>
        <translation>eine Verknüpfung des Ziels steht im Weg</translation>
    </message>
    <message>
        <source>a directory has its name</source>
        <translation>ein Verzeichnis trägt ihren Namen</translation>
    </message>
    <message>
        <source>leads to where deploys keep what they remember</source>
        <translation>führt dorthin, wo Verteilungen ablegen, was sie sich merken</translation>
    </message>
    <message>
        <source>has the place of the archive itself</source>
        <translation>hat den Platz des Archivs selbst</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: it lands on %2, and so does &quot;%3&quot;</source>
        <translation>„%1“: sie landet auf %2, ebenso wie „%3“</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: it lands on %2, which is a directory for &quot;%3&quot;</source>
        <translation>„%1“: sie landet auf %2, was ein Verzeichnis für „%3“ ist</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: %2</source>
        <translation>„%1“: %2</translation>
    </message>
    <message>
        <source>it cannot go to &quot;%1&quot;: %2</source>
        <translation>sie kann nicht nach „%1“: %2</translation>
    </message>
    <message>
        <source>its remote path &quot;%1&quot; leads to where deploys keep what they remember</source>
        <translation>ihr Zielpfad „%1“ führt dorthin, wo Verteilungen ablegen, was sie sich merken</translation>
    </message>
    <message>
        <source>its path on the target is longer than %1 bytes</source>
        <translation>ihr Pfad auf dem Ziel ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>it cannot be removed from &quot;%1&quot;, which is not below the project&apos;s directory on the target</source>
        <translation>sie kann nicht von „%1“ entfernt werden, was nicht unter dem Verzeichnis des Projekts auf dem Ziel liegt</translation>
    </message>
    <message>
        <source>%1 cannot be examined: %2</source>
        <translation>%1 kann nicht untersucht werden: %2</translation>
    </message>
    <message>
        <source>it lands on %1, which is a directory on the target</source>
        <translation>sie landet auf %1, was auf dem Ziel ein Verzeichnis ist</translation>
    </message>
    <message>
        <source>%1 is newer than &quot;%2&quot;, which is copied over it</source>
        <translation>%1 ist neuer als „%2“, womit sie überschrieben wird</translation>
    </message>
    <message>
        <source>it was changed on the target since it was deployed, and here, too</source>
        <translation>sie wurde seit der Verteilung auf dem Ziel geändert, und hier auch</translation>
    </message>
    <message>
        <source>it was changed on the target since it was deployed</source>
        <translation>sie wurde seit der Verteilung auf dem Ziel geändert</translation>
    </message>
    <message>
        <source>it was changed on the target again since the plan was looked at</source>
        <translation>sie wurde auf dem Ziel noch einmal geändert, seit der Plan angesehen wurde</translation>
    </message>
    <message>
        <source>it is not in the list any more, and was changed on the target since it was deployed</source>
        <translation>sie steht nicht mehr auf der Liste und wurde seit der Verteilung auf dem Ziel geändert</translation>
    </message>
    <message>
        <source>on this machine: %1</source>
        <translation>auf diesem Rechner: %1</translation>
    </message>
    <message>
        <source>on the target: %1</source>
        <translation>auf dem Ziel: %1</translation>
    </message>
    <message>
        <source>unreadable here</source>
        <translation>hier nicht lesbar</translation>
    </message>
    <message>
        <source>unreadable there</source>
        <translation>dort nicht lesbar</translation>
    </message>
    <message>
        <source>the local file %1 is missing</source>
        <translation>die lokale Datei %1 fehlt</translation>
    </message>
    <message>
        <source>the local file %1 is missing, and it is required</source>
        <translation>die lokale Datei %1 fehlt, und sie ist erforderlich</translation>
    </message>
    <message>
        <source>the local file %1 cannot be examined: %2</source>
        <translation>die lokale Datei %1 kann nicht untersucht werden: %2</translation>
    </message>
    <message>
        <source>%1, and it is required</source>
        <translation>%1, und sie ist erforderlich</translation>
    </message>
    <message>
        <source>the local file %1 was missing and is there now</source>
        <translation>die lokale Datei %1 fehlte und ist jetzt da</translation>
    </message>
    <message>
        <source>the local file %1 is no link</source>
        <translation>die lokale Datei %1 ist keine Verknüpfung</translation>
    </message>
    <message>
        <source>the local file %1 has other rights</source>
        <translation>die lokale Datei %1 hat andere Rechte</translation>
    </message>
    <message>
        <source>the local file %1 has another content</source>
        <translation>die lokale Datei %1 hat einen anderen Inhalt</translation>
    </message>
    <message>
        <source>the local file %1 leads elsewhere</source>
        <translation>die lokale Datei %1 führt anderswohin</translation>
    </message>
    <message>
        <source>its directory is another one now</source>
        <translation>ihr Verzeichnis ist jetzt ein anderes</translation>
    </message>
    <message>
        <source>deploys keep there what they remember</source>
        <translation>dort legen Verteilungen ab, was sie sich merken</translation>
    </message>
    <message>
        <source>%1 was not on the target and is there now</source>
        <translation>%1 war nicht auf dem Ziel und ist jetzt da</translation>
    </message>
    <message>
        <source>%1 was on the target and is not there now</source>
        <translation>%1 war auf dem Ziel und ist jetzt nicht mehr da</translation>
    </message>
    <message>
        <source>%1 is something else on the target now</source>
        <translation>%1 ist auf dem Ziel jetzt etwas anderes</translation>
    </message>
    <message>
        <source>%1 has other rights on the target now</source>
        <translation>%1 hat auf dem Ziel jetzt andere Rechte</translation>
    </message>
    <message>
        <source>%1 has another content on the target now</source>
        <translation>%1 hat auf dem Ziel jetzt einen anderen Inhalt</translation>
    </message>
    <message>
        <source>%1 leads elsewhere on the target now</source>
        <translation>%1 führt auf dem Ziel jetzt anderswohin</translation>
    </message>
    <message>
        <source>%1 was changed on the target</source>
        <translation>%1 wurde auf dem Ziel geändert</translation>
    </message>
    <message>
        <source>%1: other commands are still to be run than were then</source>
        <translation>%1: es müssen noch andere Befehle laufen als damals</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; is not to be run any more</source>
        <translation>der Befehl „%1“ muss nicht mehr laufen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no text of a link</source>
        <translation>„%1“ ist kein Text einer Verknüpfung</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no hash</source>
        <translation>„%1“ ist keine Prüfsumme</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no mode</source>
        <translation>„%1“ ist keine Angabe von Rechten</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no result of a run</source>
        <translation>„%1“ ist kein Ergebnis eines Laufs</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no run</source>
        <translation>„%1“ ist kein Lauf</translation>
    </message>
    <message>
        <source>making a temporary file</source>
        <translation>Anlegen einer temporären Datei</translation>
    </message>
    <message>
        <source>writing a temporary file</source>
        <translation>Schreiben einer temporären Datei</translation>
    </message>
    <message>
        <source>it was not sent</source>
        <translation>sie wurde nicht gesendet</translation>
    </message>
    <message>
        <source>%1 leads out of the profile&apos;s path</source>
        <translation>%1 führt aus dem Pfad des Profils hinaus</translation>
    </message>
    <message>
        <source>a machine that it does not name</source>
        <translation>einem Rechner, den es nicht nennt</translation>
    </message>
    <message>
        <source>the target cannot be locked: %1</source>
        <translation>das Ziel kann nicht gesperrt werden: %1</translation>
    </message>
    <message>
        <source>it has the member &quot;%1&quot; twice</source>
        <translation>es hat das Element „%1“ zweimal</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name of a kept file</source>
        <translation>„%1“ ist kein Name einer behaltenen Datei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no way to take a file back</source>
        <translation>„%1“ ist keine Art, eine Datei zurückzunehmen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; lacks what it is taken back by</source>
        <translation>„%1“ fehlt, womit sie zurückgenommen wird</translation>
    </message>
    <message>
        <source>it is of a newer version of this program</source>
        <translation>es stammt von einer neueren Version dieses Programms</translation>
    </message>
    <message>
        <source>nothing was kept of it</source>
        <translation>davon wurde nichts behalten</translation>
    </message>
    <message>
        <source>%1 is gone</source>
        <translation>%1 ist weg</translation>
    </message>
    <message>
        <source>the files are too large to be compared</source>
        <translation>die Dateien sind zu groß für einen Vergleich</translation>
    </message>
    <message>
        <source>is a link that leads out: %1</source>
        <translation>ist eine Verknüpfung, die hinausführt: %1</translation>
    </message>
    <message>
        <source>has an absolute name</source>
        <translation>hat einen absoluten Namen</translation>
    </message>
    <message>
        <source>has a name with a drive</source>
        <translation>hat einen Namen mit einem Laufwerk</translation>
    </message>
    <message>
        <source>leads out of the directory that it is unpacked into</source>
        <translation>führt aus dem Verzeichnis hinaus, in das es ausgepackt wird</translation>
    </message>
    <message>
        <source>has a name that is too long or too deep</source>
        <translation>hat einen Namen, der zu lang oder zu tief ist</translation>
    </message>
    <message>
        <source>is below %1, which is no directory</source>
        <translation>liegt unter %1, was kein Verzeichnis ist</translation>
    </message>
    <message>
        <source>reading it: it is %1</source>
        <translation>Lesen: es ist %1</translation>
    </message>
    <message>
        <source>reading it: it is no plain file</source>
        <translation>Lesen: es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>reading it</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>it changed while it was copied</source>
        <translation>sie änderte sich, während sie kopiert wurde</translation>
    </message>
    <message>
        <source>making a link beside it</source>
        <translation>Anlegen einer Verknüpfung daneben</translation>
    </message>
    <message>
        <source>putting it in place</source>
        <translation>Einsetzen an ihren Platz</translation>
    </message>
    <message>
        <source>opening the directory</source>
        <translation>Öffnen des Verzeichnisses</translation>
    </message>
    <message>
        <source>reading the link</source>
        <translation>Lesen der Verknüpfung</translation>
    </message>
    <message>
        <source>%1 is %2, not a directory</source>
        <translation>%1 ist %2, kein Verzeichnis</translation>
    </message>
    <message>
        <source>%1 is %2, not a file</source>
        <translation>%1 ist %2, keine Datei</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 ist nicht erreichbar: %2</translation>
    </message>
    <message>
        <source>the user has no home directory</source>
        <translation>der Benutzer hat kein Heimatverzeichnis</translation>
    </message>
    <message>
        <source>%1 cannot be followed: %2</source>
        <translation>%1 kann nicht verfolgt werden: %2</translation>
    </message>
    <message>
        <source>examining it</source>
        <translation>Untersuchen</translation>
    </message>
    <message>
        <source>it is larger than %1 bytes</source>
        <translation>sie ist größer als %1 Bytes</translation>
    </message>
    <message>
        <source>it is there already</source>
        <translation>sie ist schon da</translation>
    </message>
    <message>
        <source>making it</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>renaming it</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>setting its rights</source>
        <translation>Setzen der Rechte</translation>
    </message>
    <message>
        <source>setting the time stamp</source>
        <translation>Setzen der Zeit</translation>
    </message>
    <message>
        <source>removing it</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>opening its directory</source>
        <translation>Öffnen ihres Verzeichnisses</translation>
    </message>
    <message>
        <source>copying it</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>copying its rights and time</source>
        <translation>Kopieren von Rechten und Zeit</translation>
    </message>
    <message>
        <source>linking it</source>
        <translation>Verknüpfen</translation>
    </message>
    <message>
        <source>moving it</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>making a temporary file beside it</source>
        <translation>Anlegen einer temporären Datei daneben</translation>
    </message>
    <message>
        <source>bringing it to the disk</source>
        <translation>Schreiben auf die Platte</translation>
    </message>
    <message>
        <source>closing it</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>writing it</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>a file</source>
        <translation>eine Datei</translation>
    </message>
    <message>
        <source>a directory</source>
        <translation>ein Verzeichnis</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>ein Gerät</translation>
    </message>
    <message>
        <source>a pipe</source>
        <translation>eine Pipe</translation>
    </message>
    <message>
        <source>a socket</source>
        <translation>ein Socket</translation>
    </message>
    <message>
        <source>a symbolic link</source>
        <translation>eine symbolische Verknüpfung</translation>
    </message>
    <message>
        <source>the machine of the profile &quot;%1&quot; offers no host key</source>
        <translation>der Rechner des Profils „%1“ bietet keinen Host-Schlüssel an</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the name of a profile</source>
        <translation>„%1“ kann nicht der Name eines Profils sein</translation>
    </message>
    <message>
        <source>the profile &quot;%1&quot; names no platform</source>
        <translation>das Profil „%1“ nennt keine Plattform</translation>
    </message>
    <message>
        <source>the path of the profile &quot;%1&quot; is empty</source>
        <translation>der Pfad des Profils „%1“ fehlt</translation>
    </message>
    <message>
        <source>the path of the profile &quot;%1&quot; is not a full path: %2</source>
        <translation>der Pfad des Profils „%1“ ist kein vollständiger Pfad: %2</translation>
    </message>
    <message>
        <source>the path of the profile &quot;%1&quot; is the root of the file system</source>
        <translation>der Pfad des Profils „%1“ ist die Wurzel des Dateisystems</translation>
    </message>
    <message>
        <source>the path of the profile &quot;%1&quot; climbs with &quot;..&quot;: %2</source>
        <translation>der Pfad des Profils „%1“ steigt mit „..“ auf: %2</translation>
    </message>
    <message>
        <source>%1; none was added yet</source>
        <translation>%1; es wurde noch keins angelegt</translation>
    </message>
    <message>
        <source>%1; known are: %2</source>
        <translation>%1; bekannt sind: %2</translation>
    </message>
    <message>
        <source>%1; there are none of that platform</source>
        <translation>%1; für diese Plattform gibt es keins</translation>
    </message>
    <message>
        <source>there is no group &quot;%1&quot;</source>
        <translation>es gibt keine Gruppe „%1“</translation>
    </message>
    <message>
        <source>the group &quot;%1&quot; has no profiles</source>
        <translation>die Gruppe „%1“ hat keine Profile</translation>
    </message>
    <message>
        <source>the profiles &quot;%1&quot; and &quot;%2&quot; lead to the same place</source>
        <translation>die Profile „%1“ und „%2“ führen an denselben Ort</translation>
    </message>
    <message>
        <source>%1, which the group &quot;%2&quot; names</source>
        <translation>%1, das die Gruppe „%2“ nennt</translation>
    </message>
    <message>
        <source>the profile &quot;%1&quot;, which the group &quot;%2&quot; names, is one of the platform &quot;%3&quot;, not of &quot;%4&quot;</source>
        <translation>das Profil „%1“, das die Gruppe „%2“ nennt, gehört zur Plattform „%3“, nicht zu „%4“</translation>
    </message>
    <message>
        <source>%1 is no directory and cannot be made one</source>
        <translation>%1 ist kein Verzeichnis und kann keins werden</translation>
    </message>
    <message>
        <source>the group &quot;%1&quot; has a profile twice</source>
        <translation>die Gruppe „%1“ hat ein Profil zweimal</translation>
    </message>
    <message>
        <source>it has two profiles &quot;%1&quot;</source>
        <translation>es gibt zwei Profile „%1“</translation>
    </message>
    <message>
        <source>it has two groups &quot;%1&quot;</source>
        <translation>es gibt zwei Gruppen „%1“</translation>
    </message>
    <message>
        <source>there is a profile &quot;%1&quot; already</source>
        <translation>es gibt schon ein Profil „%1“</translation>
    </message>
    <message>
        <source>the group &quot;%1&quot; has no profile &quot;%2&quot;</source>
        <translation>die Gruppe „%1“ hat kein Profil „%2“</translation>
    </message>
    <message>
        <source>all is well, but what was asked for is not there</source>
        <translation>alles sei gut, aber das Gefragte fehlt</translation>
    </message>
    <message>
        <source>a packet ends late</source>
        <translation>ein Paket endet zu spät</translation>
    </message>
    <message>
        <source>a packet ends early</source>
        <translation>ein Paket endet zu früh</translation>
    </message>
    <message>
        <source>a wrong number of names</source>
        <translation>eine falsche Zahl von Namen</translation>
    </message>
    <message>
        <source>an answer of kind %1 to a request of kind %2</source>
        <translation>eine Antwort der Art %1 auf eine Frage der Art %2</translation>
    </message>
    <message>
        <source>a handle of %1 bytes</source>
        <translation>ein Griff von %1 Bytes</translation>
    </message>
    <message>
        <source>no bytes, and not the end of the file</source>
        <translation>keine Bytes, und nicht das Ende der Datei</translation>
    </message>
    <message>
        <source>more bytes than were asked for</source>
        <translation>mehr Bytes als verlangt</translation>
    </message>
    <message>
        <source>the machine ended the conversation before it began</source>
        <translation>der Rechner beendete das Gespräch, bevor es begann</translation>
    </message>
    <message>
        <source>the machine&apos;s greeting makes no sense: %1</source>
        <translation>die Begrüßung des Rechners ergibt keinen Sinn: %1</translation>
    </message>
    <message>
        <source>the machine does not speak version 3 of the file transfer protocol</source>
        <translation>der Rechner spricht nicht Version 3 des Dateiübertragungsprotokolls</translation>
    </message>
    <message>
        <source>the connection was lost: the machine had not answered for %1 seconds</source>
        <translation>die Verbindung ging verloren: der Rechner hatte %1 Sekunden lang nicht geantwortet</translation>
    </message>
    <message>
        <source>the connection was lost: %1</source>
        <translation>die Verbindung ging verloren: %1</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>die Verbindung ging verloren</translation>
    </message>
    <message>
        <source>waiting for the machine: %1</source>
        <translation>Warten auf den Rechner: %1</translation>
    </message>
    <message>
        <source>the machine has not answered for %1 seconds</source>
        <translation>der Rechner hat %1 Sekunden lang nicht geantwortet</translation>
    </message>
    <message>
        <source>the machine does not speak the file transfer protocol; perhaps its start-up files print text</source>
        <translation>der Rechner spricht das Dateiübertragungsprotokoll nicht; vielleicht geben seine Startdateien Text aus</translation>
    </message>
    <message>
        <source>the machine answers what it was not asked</source>
        <translation>der Rechner antwortet, was er nicht gefragt wurde</translation>
    </message>
    <message>
        <source>the machine&apos;s answer makes no sense: %1</source>
        <translation>die Antwort des Rechners ergibt keinen Sinn: %1</translation>
    </message>
    <message>
        <source>%1; what stood there has the name %2 now</source>
        <translation>%1; was dort stand, heißt jetzt %2</translation>
    </message>
    <message>
        <source>has a NUL character</source>
        <translation>hat ein NUL-Zeichen</translation>
    </message>
    <message>
        <source>cannot be run: the machine has no shell that is known</source>
        <translation>kann nicht laufen: der Rechner hat keine bekannte Shell</translation>
    </message>
    <message>
        <source>cannot be run: %1 cannot be named in a command of %2</source>
        <translation>kann nicht laufen: %1 lässt sich in einem Befehl für %2 nicht nennen</translation>
    </message>
    <message>
        <source>the machine says that it is there, and it is not</source>
        <translation>der Rechner sagt, sie sei da, und sie ist es nicht</translation>
    </message>
    <message>
        <source>the server knows no hard links</source>
        <translation>der Server kennt keine harten Verknüpfungen</translation>
    </message>
    <message>
        <source>the server gives no answer</source>
        <translation>der Server gibt keine Antwort</translation>
    </message>
    <message>
        <source>making the directory %1</source>
        <translation>Anlegen des Verzeichnisses %1</translation>
    </message>
    <message>
        <source>making the directory</source>
        <translation>Anlegen des Verzeichnisses</translation>
    </message>
    <message>
        <source>%1 is there and is no directory</source>
        <translation>%1 ist da und kein Verzeichnis</translation>
    </message>
    <message>
        <source>the machine does not tell where &quot;%1&quot; is</source>
        <translation>der Rechner sagt nicht, wo „%1“ ist</translation>
    </message>
    <message>
        <source>%1 is a link that cannot be followed</source>
        <translation>%1 ist eine Verknüpfung, der nicht zu folgen ist</translation>
    </message>
    <message>
        <source>%1 is a file, not a directory</source>
        <translation>%1 ist eine Datei, kein Verzeichnis</translation>
    </message>
    <message>
        <source>%1; the disk of the target is full</source>
        <translation>%1; die Platte des Ziels ist voll</translation>
    </message>
    <message>
        <source>the server gives no handle</source>
        <translation>der Server gibt keinen Griff</translation>
    </message>
    <message>
        <source>looking at it on the target</source>
        <translation>Ansehen auf dem Ziel</translation>
    </message>
    <message>
        <source>the server does not say how long it is</source>
        <translation>der Server sagt nicht, wie lang sie ist</translation>
    </message>
    <message>
        <source>the target has %1 of its %2 bytes</source>
        <translation>das Ziel hat %1 von ihren %2 Bytes</translation>
    </message>
    <message>
        <source>the file ends early</source>
        <translation>die Datei endet zu früh</translation>
    </message>
    <message>
        <source>no such file or directory</source>
        <translation>Datei oder Verzeichnis nicht gefunden</translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>the server reports a failure</source>
        <translation>der Server meldet einen Fehler</translation>
    </message>
    <message>
        <source>the server does not understand</source>
        <translation>der Server versteht nicht</translation>
    </message>
    <message>
        <source>the server cannot do this</source>
        <translation>der Server kann das nicht</translation>
    </message>
    <message>
        <source>the server reports error %1</source>
        <translation>der Server meldet Fehler %1</translation>
    </message>
    <message>
        <source>making a socket for questions</source>
        <translation>Anlegen eines Sockets für Fragen</translation>
    </message>
    <message>
        <source>making a socket</source>
        <translation>Anlegen eines Sockets</translation>
    </message>
    <message>
        <source>the host key of %1 (%2) was revoked in %3, line %4</source>
        <translation>der Host-Schlüssel von %1 (%2) wurde in %3, Zeile %4, widerrufen</translation>
    </message>
    <message>
        <source>the host key of %1 has changed, so this may be another machine: known is %2, offered is %3. If the change is right, remove line %4 of %5: %6</source>
        <translation>der Host-Schlüssel von %1 hat sich geändert, dies kann also ein anderer Rechner sein: bekannt ist %2, angeboten wird %3. Ist die Änderung richtig, so entfernen Sie Zeile %4 von %5: %6</translation>
    </message>
    <message>
        <source>the host key of %1 is not known: %2; it was not accepted</source>
        <translation>der Host-Schlüssel von %1 ist nicht bekannt: %2; er wurde nicht angenommen</translation>
    </message>
    <message>
        <source>the host key of %1 is not known: %2; nobody can be asked here whether it is the right one: accept it once at a terminal</source>
        <translation>der Host-Schlüssel von %1 ist nicht bekannt: %2; hier kann niemand gefragt werden, ob es der richtige ist: nehmen Sie ihn einmal in einem Terminal an</translation>
    </message>
    <message>
        <source>the SSH client cannot be run: %1</source>
        <translation>der SSH-Client kann nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>the host key cannot be kept: ssh-keygen did not hash it</source>
        <translation>der Host-Schlüssel kann nicht behalten werden: ssh-keygen hat ihn nicht verschlüsselt</translation>
    </message>
    <message>
        <source>opening it</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>%1 cannot be run: %2</source>
        <translation>%1 kann nicht laufen: %2</translation>
    </message>
    <message>
        <source>the SSH client does not say where it keeps host keys</source>
        <translation>der SSH-Client sagt nicht, wo er Host-Schlüssel aufbewahrt</translation>
    </message>
    <message>
        <source>the host key cannot be kept: the configuration of the SSH client names no file for it</source>
        <translation>der Host-Schlüssel kann nicht behalten werden: die Konfiguration des SSH-Clients nennt keine Datei dafür</translation>
    </message>
    <message>
        <source>making its directory</source>
        <translation>Anlegen ihres Verzeichnisses</translation>
    </message>
    <message>
        <source>the host key cannot be kept in %1: %2</source>
        <translation>der Host-Schlüssel kann nicht in %1 behalten werden: %2</translation>
    </message>
    <message>
        <source>ssh-keygen cannot read a host key of type &quot;%1&quot;</source>
        <translation>ssh-keygen kann keinen Host-Schlüssel vom Typ „%1“ lesen</translation>
    </message>
    <message>
        <source>the profile &quot;%1&quot;: %2</source>
        <translation>das Profil „%1“: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no option of the form KEY=VALUE</source>
        <translation>„%1“ ist keine Option der Form SCHLÜSSEL=WERT</translation>
    </message>
    <message>
        <source>the option %1 is set by the connection itself</source>
        <translation>die Option %1 setzt die Verbindung selbst</translation>
    </message>
    <message>
        <source>%1 is %2 seconds, and can be 1 to %3</source>
        <translation>%1 ist %2 Sekunden und kann 1 bis %3 sein</translation>
    </message>
    <message>
        <source>no host is given</source>
        <translation>es ist kein Rechner angegeben</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be a host</source>
        <translation>„%1“ kann kein Rechner sein</translation>
    </message>
    <message>
        <source>%1 cannot be a port; ports are 1 to 65535</source>
        <translation>%1 kann kein Port sein; Ports sind 1 bis 65535</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be a user</source>
        <translation>„%1“ kann kein Benutzer sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the file of a key</source>
        <translation>„%1“ kann nicht die Datei eines Schlüssels sein</translation>
    </message>
    <message>
        <source>the time-out of a connection</source>
        <translation>die Wartezeit einer Verbindung</translation>
    </message>
    <message>
        <source>the time between two signs of life</source>
        <translation>die Zeit zwischen zwei Lebenszeichen</translation>
    </message>
    <message>
        <source>there are no profiles of kind &quot;%1&quot;; known are: %2</source>
        <translation>es gibt keine Profile der Art „%1“; bekannt sind: %2</translation>
    </message>
    <message>
        <source>has a character that names of Windows cannot have</source>
        <translation>hat ein Zeichen, das Namen unter Windows nicht haben können</translation>
    </message>
    <message>
        <source>ends in a dot or a blank, which Windows drops</source>
        <translation>endet mit einem Punkt oder Leerzeichen, das Windows weglässt</translation>
    </message>
    <message>
        <source>is the name of a device of Windows</source>
        <translation>ist der Name eines Geräts von Windows</translation>
    </message>
    <message>
        <source>is longer than %1 bytes</source>
        <translation>ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>is kept for files that are not whole yet</source>
        <translation>ist Dateien vorbehalten, die noch nicht vollständig sind</translation>
    </message>
    <message>
        <source>its remote path &quot;%1&quot; %2</source>
        <translation>ihr Zielpfad „%1“ %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; in its remote path %2</source>
        <translation>„%1“ in ihrem Zielpfad %2</translation>
    </message>
    <message>
        <source>leaves the path of the profile</source>
        <translation>verlässt den Pfad des Profils</translation>
    </message>
    <message>
        <source>begins with &quot;~&quot;, which stands for a home directory</source>
        <translation>beginnt mit „~“, was für ein Heimatverzeichnis steht</translation>
    </message>
    <message>
        <source>begins with a drive, which the target does not have</source>
        <translation>beginnt mit einem Laufwerk, das das Ziel nicht hat</translation>
    </message>
    <message>
        <source>names a drive, which the target does not have</source>
        <translation>nennt ein Laufwerk, das das Ziel nicht hat</translation>
    </message>
    <message>
        <source>names the home directory of another user</source>
        <translation>nennt das Heimatverzeichnis eines anderen Benutzers</translation>
    </message>
    <message>
        <source>climbs above the directory where it begins</source>
        <translation>steigt über das Verzeichnis auf, in dem er beginnt</translation>
    </message>
    <message>
        <source>names no file</source>
        <translation>nennt keine Datei</translation>
    </message>
    <message>
        <source>it leads to %1, which is outside the path of the profile</source>
        <translation>sie führt nach %1, was außerhalb des Pfads des Profils liegt</translation>
    </message>
    <message>
        <source>examining the temporary file</source>
        <translation>Untersuchen der temporären Datei</translation>
    </message>
    <message>
        <source>the file has another %1 than before</source>
        <translation>die Datei hat eine andere Zuordnung als zuvor: %1</translation>
    </message>
    <message>
        <source>owner and group</source>
        <translation>Besitzer und Gruppe</translation>
    </message>
    <message>
        <source>owner</source>
        <translation>Besitzer</translation>
    </message>
    <message>
        <source>the file&apos;s attribute &quot;%1&quot; was not kept</source>
        <translation>das Attribut „%1“ der Datei blieb nicht erhalten</translation>
    </message>
    <message>
        <source>setting the rights of the temporary file</source>
        <translation>Setzen der Rechte der temporären Datei</translation>
    </message>
    <message>
        <source>reading the old content</source>
        <translation>Lesen des alten Inhalts</translation>
    </message>
    <message>
        <source>writing the copy</source>
        <translation>Schreiben der Kopie</translation>
    </message>
    <message>
        <source>making the copy</source>
        <translation>Anlegen der Kopie</translation>
    </message>
    <message>
        <source>bringing the copy to the disk</source>
        <translation>Schreiben der Kopie auf die Platte</translation>
    </message>
    <message>
        <source>finding the user&apos;s state directory</source>
        <translation>Suchen des Zustandsverzeichnisses des Benutzers</translation>
    </message>
    <message>
        <source>finding a free name</source>
        <translation>Suchen eines freien Namens</translation>
    </message>
    <message>
        <source>%1 second</source>
        <translation>%1 Sekunde</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message>
        <source>%1 cannot be locked: %2; nothing was written</source>
        <translation>%1 kann nicht gesperrt werden: %2; es wurde nichts geschrieben</translation>
    </message>
    <message>
        <source>%1 is in use by another run; waited %2; nothing was written</source>
        <translation>%1 wird von einem anderen Lauf benutzt; gewartet: %2; es wurde nichts geschrieben</translation>
    </message>
    <message>
        <source>the %1 cannot be read: %2</source>
        <translation>nicht lesbar (%1): %2</translation>
    </message>
    <message>
        <source>the path names %1, not %2</source>
        <translation>der Pfad nennt %1, nicht %2</translation>
    </message>
    <message>
        <source>the %1 has %2 bytes; at most %3 are read</source>
        <translation>%1: %2 Bytes; höchstens %3 werden gelesen</translation>
    </message>
    <message>
        <source>the %1 was changed by another program each time it was read</source>
        <translation>%1: wurde bei jedem Lesen von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>project file</source>
        <translation>Projektdatei</translation>
    </message>
    <message>
        <source>a project file</source>
        <translation>eine Projektdatei</translation>
    </message>
    <message>
        <source>following the symbolic link</source>
        <translation>Folgen der symbolischen Verknüpfung</translation>
    </message>
    <message>
        <source>%1 is %2; nothing was written</source>
        <translation>%1 ist %2; es wurde nichts geschrieben</translation>
    </message>
    <message>
        <source>%1 was removed since it was read; nothing was written (--force-save writes it anew)</source>
        <translation>%1 wurde entfernt, seit es gelesen wurde; es wurde nichts geschrieben (--force-save schreibt es neu)</translation>
    </message>
    <message>
        <source>%1 exists already; nothing was written</source>
        <translation>%1 gibt es schon; es wurde nichts geschrieben</translation>
    </message>
    <message>
        <source>%1 changed on disk since it was read; nothing was written (--force-save overwrites it)</source>
        <translation>%1 hat sich auf der Platte geändert, seit es gelesen wurde; es wurde nichts geschrieben (--force-save überschreibt es)</translation>
    </message>
    <message>
        <source>locking the new content</source>
        <translation>Sperren des neuen Inhalts</translation>
    </message>
    <message>
        <source>the old content of %1 was not kept as a backup: %2</source>
        <translation>der alte Inhalt von %1 wurde nicht als Sicherung behalten: %2</translation>
    </message>
    <message>
        <source>%1 has further names; they keep the old content</source>
        <translation>%1 hat weitere Namen; sie behalten den alten Inhalt</translation>
    </message>
    <message>
        <source>bringing its directory to the disk</source>
        <translation>Schreiben des Verzeichnisses auf die Platte</translation>
    </message>
    <message>
        <source>%1 was written but may be lost if the machine stops now: %2; the new content is in place</source>
        <translation>%1 wurde geschrieben, kann aber verloren gehen, wenn der Rechner jetzt ausfällt: %2; der neue Inhalt ist an seinem Platz</translation>
    </message>
    <message>
        <source>%1 was not written: %2; the old content is in place</source>
        <translation>%1 wurde nicht geschrieben: %2; der alte Inhalt ist an seinem Platz</translation>
    </message>
    <message>
        <source>%1 was not written: %2; no file was made</source>
        <translation>%1 wurde nicht geschrieben: %2; es entstand keine Datei</translation>
    </message>
    <message>
        <source>no reason was given</source>
        <translation>es wurde kein Grund genannt</translation>
    </message>
    <message>
        <source>there is no such file: the installation is not complete</source>
        <translation>es gibt diese Datei nicht: die Installation ist nicht vollständig</translation>
    </message>
    <message>
        <source>the module cannot be loaded: %1</source>
        <translation>das Modul kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>the module is of another version: %1</source>
        <translation>das Modul ist von einer anderen Version: %1</translation>
    </message>
    <message>
        <source>universal Mach-O</source>
        <translation>universelles Mach-O</translation>
    </message>
    <message>
        <source>no program</source>
        <translation>kein Programm</translation>
    </message>
    <message>
        <source>making a private directory</source>
        <translation>Anlegen eines privaten Verzeichnisses</translation>
    </message>
    <message>
        <source>writing the new content</source>
        <translation>Schreiben des neuen Inhalts</translation>
    </message>
    <message>
        <source>reading the content on disk</source>
        <translation>Lesen des Inhalts auf der Platte</translation>
    </message>
    <message>
        <source>examining the content on disk</source>
        <translation>Untersuchen des Inhalts auf der Platte</translation>
    </message>
    <message>
        <source>bringing the new content to the disk</source>
        <translation>Schreiben des neuen Inhalts auf die Platte</translation>
    </message>
    <message>
        <source>closing the temporary file</source>
        <translation>Schließen der temporären Datei</translation>
    </message>
    <message>
        <source>reading the new content back</source>
        <translation>Zurücklesen des neuen Inhalts</translation>
    </message>
    <message>
        <source>comparing the new content with what reached the disk</source>
        <translation>Vergleichen des neuen Inhalts mit dem auf der Platte</translation>
    </message>
    <message>
        <source>putting the new content in place</source>
        <translation>Einsetzen des neuen Inhalts</translation>
    </message>
    <message>
        <source>making a pipe</source>
        <translation>Anlegen einer Pipe</translation>
    </message>
    <message>
        <source>setting up a pipe</source>
        <translation>Einrichten einer Pipe</translation>
    </message>
    <message>
        <source>starting %1</source>
        <translation>Starten von %1</translation>
    </message>
    <message>
        <source>cannot be run: %1</source>
        <translation>kann nicht laufen: %1</translation>
    </message>
    <message>
        <source>was interrupted</source>
        <translation>wurde unterbrochen</translation>
    </message>
    <message>
        <source>was ended by signal %1</source>
        <translation>wurde durch Signal %1 beendet</translation>
    </message>
    <message>
        <source>ended with status %1</source>
        <translation>endete mit Status %1</translation>
    </message>
    <message>
        <source>no known shell</source>
        <translation>keine bekannte Shell</translation>
    </message>
    <message>
        <source>a POSIX shell</source>
        <translation>eine POSIX-Shell</translation>
    </message>
    <message>
        <source>There is no connection to %1: %2.

See that the machine runs and can be reached from here, and that the profile is right: Tools, Remote Profiles shows and tests it. Then connect again.</source>
        <translation>Es gibt keine Verbindung zu %1: %2.

Sehen Sie nach, ob der Rechner läuft und von hier erreichbar ist und ob das Profil stimmt: Extras, Ferne Profile zeigt und prüft es. Verbinden Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>the project was not saved: %1</source>
        <translation>das Projekt wurde nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>the project is saved, but not its side file: %1</source>
        <translation>das Projekt ist gespeichert, aber seine Nebendatei nicht: %1</translation>
    </message>
    <message>
        <source>the project is as it should be, but its side file is out of date: %1</source>
        <translation>das Projekt ist, wie es sein soll, aber seine Nebendatei ist veraltet: %1</translation>
    </message>
    <message>
        <source>the side file was out of date and was written anew</source>
        <translation>die Nebendatei war veraltet und wurde neu geschrieben</translation>
    </message>
    <message>
        <source>%1 (the last content that was replaced here is kept as %2)</source>
        <translation>%1 (der zuletzt ersetzte Inhalt liegt als %2)</translation>
    </message>
    <message>
        <source>a project of that name is open</source>
        <translation>ein Projekt dieses Namens ist offen</translation>
    </message>
    <message>
        <source>the name of the project file is empty</source>
        <translation>der Name der Projektdatei fehlt</translation>
    </message>
    <message>
        <source>not well-formed XML: %1</source>
        <translation>kein wohlgeformtes XML: %1</translation>
    </message>
    <message>
        <source>no element found</source>
        <translation>kein Element gefunden</translation>
    </message>
    <message>
        <source>mismatched tag</source>
        <translation>schließendes Element passt nicht</translation>
    </message>
    <message>
        <source>not well-formed (invalid token)</source>
        <translation>ungültiges Zeichen</translation>
    </message>
    <message>
        <source>unclosed token</source>
        <translation>nicht abgeschlossenes Element</translation>
    </message>
    <message>
        <source>junk after document element</source>
        <translation>Text hinter dem Wurzelelement</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>the file holds nothing but zero bytes</source>
        <translation>die Datei enthält nichts als Nullbytes</translation>
    </message>
    <message>
        <source>the root element is &quot;%1&quot;, so this is not an MSBuild project</source>
        <translation>das Wurzelelement ist „%1“, daher ist dies kein MSBuild-Projekt</translation>
    </message>
    <message>
        <source>the option &quot;%1&quot; is &quot;%2&quot;, which is no Boolean (true or false)</source>
        <translation>die Option „%1“ ist „%2“, was kein Wahrheitswert ist (true oder false)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a directory; &quot;--tree %2&quot; adds all its files</source>
        <translation>„%1“ ist ein Verzeichnis; „--tree %2“ fügt alle seine Dateien hinzu</translation>
    </message>
    <message>
        <source>the directory &quot;%1&quot; cannot be read: %2</source>
        <translation>das Verzeichnis „%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the directory &quot;%1&quot; has no file in it</source>
        <translation>das Verzeichnis „%1“ enthält keine Datei</translation>
    </message>
    <message>
        <source>there is no directory &quot;%1&quot;</source>
        <translation>es gibt kein Verzeichnis „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a file, no directory</source>
        <translation>„%1“ ist eine Datei, kein Verzeichnis</translation>
    </message>
    <message>
        <source>the recovery journal is in use by another run</source>
        <translation>das Protokoll der Änderungen wird von einem anderen Lauf benutzt</translation>
    </message>
    <message>
        <source>the recovery journal cannot be understood: %1</source>
        <translation>das Protokoll der Änderungen ist nicht zu verstehen: %1</translation>
    </message>
    <message>
        <source>unsaved edits of %1 would be lost if the program ended now: their journal could not be written (%2)</source>
        <translation>ungespeicherte Änderungen an %1 gingen verloren, wenn das Programm jetzt endete: ihr Protokoll konnte nicht geschrieben werden (%2)</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Verzeichnis nicht gefunden</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Vorgang nicht erlaubt</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>kein Platz mehr auf dem Gerät</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Plattenkontingent überschritten</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>das Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>ist ein Verzeichnis</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>ist kein Verzeichnis</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>die Datei gibt es schon</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>der Dateiname ist zu lang</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>zu viele symbolische Verknüpfungen</translation>
    </message>
    <message>
        <source>Directory not empty</source>
        <translation>das Verzeichnis ist nicht leer</translation>
    </message>
    <message>
        <source>Text file busy</source>
        <translation>das Programm läuft gerade</translation>
    </message>
    <message>
        <source>Device or resource busy</source>
        <translation>das Gerät ist belegt</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>ungültiges Argument</translation>
    </message>
    <message>
        <source>Broken pipe</source>
        <translation>die Gegenseite hat geschlossen</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>Verbindung abgelehnt</translation>
    </message>
    <message>
        <source>Connection reset by peer</source>
        <translation>die Gegenseite hat die Verbindung abgebrochen</translation>
    </message>
    <message>
        <source>Connection timed out</source>
        <translation>Zeitüberschreitung der Verbindung</translation>
    </message>
    <message>
        <source>No route to host</source>
        <translation>der Rechner ist nicht erreichbar</translation>
    </message>
    <message>
        <source>Resource temporarily unavailable</source>
        <translation>vorübergehend nicht verfügbar</translation>
    </message>
    <message>
        <source>Cannot allocate memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>die Datei ist nicht mehr dieselbe</translation>
    </message>
    <message>
        <source>it should be %1, but is %2</source>
        <translation>es sollte %1 sein, ist aber %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be %2, but is %3</source>
        <translation>„%1“ sollte %2 sein, ist aber %3</translation>
    </message>
    <message>
        <source>an object with the member &quot;%1&quot;</source>
        <translation>ein Objekt mit dem Mitglied „%1“</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a list of texts</source>
        <translation>eine Liste von Texten</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>there is no member &quot;%1&quot;</source>
        <translation>das Mitglied „%1“ fehlt</translation>
    </message>
    <message>
        <source>a number is beyond all ranges at byte %1</source>
        <translation>eine Zahl liegt außerhalb aller Bereiche, bei Byte %1</translation>
    </message>
    <message>
        <source>it is no JSON at byte %1</source>
        <translation>bei Byte %1 ist es kein JSON</translation>
    </message>
    <message>
        <source>it is nested deeper than %1 levels</source>
        <translation>es ist tiefer als %1 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>the %1 file cannot be read: %2</source>
        <translation>die Datei mit %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the %1 file is damaged: %2; mend it or remove it</source>
        <translation>die Datei mit %1 ist beschädigt: %2; reparieren oder entfernen Sie sie</translation>
    </message>
    <message>
        <source>the %1 would hold a text that is not UTF-8 and cannot be kept</source>
        <translation>%1 enthielten einen Text, der kein UTF-8 ist und nicht gespeichert werden kann</translation>
    </message>
    <message>
        <source>the %1 were not written: neither XDG_CONFIG_HOME nor HOME names a directory; no file was made</source>
        <translation>%1 wurden nicht geschrieben: weder XDG_CONFIG_HOME noch HOME nennt ein Verzeichnis; es wurde keine Datei angelegt</translation>
    </message>
    <message>
        <source>%1 was not written: its directory cannot be made: %2; no file was made</source>
        <translation>%1 wurde nicht geschrieben: das Verzeichnis dafür kann nicht angelegt werden: %2; es wurde keine Datei angelegt</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>the setting &quot;%1&quot; is damaged: %2; &quot;settings unset&quot; removes it</source>
        <translation>die Einstellung „%1“ ist beschädigt: %2; „settings unset“ entfernt sie</translation>
    </message>
    <message>
        <source>there is no platform &quot;%1&quot;</source>
        <translation>es gibt keine Plattform „%1“</translation>
    </message>
    <message>
        <source>there is no setting &quot;%1&quot;</source>
        <translation>es gibt keine Einstellung „%1“</translation>
    </message>
    <message>
        <source>there is no platform &quot;%1&quot; for the setting &quot;%2&quot;</source>
        <translation>es gibt keine Plattform „%1“ für die Einstellung „%2“</translation>
    </message>
    <message>
        <source>the setting &quot;%1&quot; is true or false, not &quot;%2&quot;</source>
        <translation>die Einstellung „%1“ ist true oder false, nicht „%2“</translation>
    </message>
    <message>
        <source>the setting &quot;%1&quot; is a whole number, not &quot;%2&quot;</source>
        <translation>die Einstellung „%1“ ist eine ganze Zahl, nicht „%2“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a text nor a list of texts</source>
        <translation>„%1“ ist weder ein Text noch eine Liste von Texten</translation>
    </message>
    <message>
        <source>the name of a setting is empty</source>
        <translation>der Name einer Einstellung ist leer</translation>
    </message>
    <message>
        <source>the name of a setting has a control character</source>
        <translation>der Name einer Einstellung enthält ein Steuerzeichen</translation>
    </message>
    <message>
        <source>the setting &quot;%1&quot; is a history, which grows by what is entered</source>
        <translation>die Einstellung „%1“ ist ein Verlauf, der durch Eingaben wächst</translation>
    </message>
    <message>
        <source>the setting &quot;%1&quot; is &quot;%2&quot;, which is neither true nor false; it counts as %3</source>
        <translation>die Einstellung „%1“ ist „%2“, also weder wahr noch falsch; sie gilt als %3</translation>
    </message>
    <message>
        <source>%1 (the file declares &quot;%2&quot;)</source>
        <translation>%1 (die Datei nennt „%2“)</translation>
    </message>
    <message>
        <source>half of a character (a surrogate without its other one)</source>
        <translation>ein halbes Zeichen (ein Surrogat ohne sein Gegenstück)</translation>
    </message>
    <message>
        <source>the prefix of &quot;%1&quot; is not declared</source>
        <translation>das Präfix von „%1“ ist nicht erklärt</translation>
    </message>
    <message>
        <source>a document type declaration (DOCTYPE) is not allowed in such a file</source>
        <translation>eine Dokumenttyp-Deklaration (DOCTYPE) ist in einer solchen Datei nicht erlaubt</translation>
    </message>
    <message>
        <source>the file is larger than %1 bytes</source>
        <translation>die Datei ist größer als %1 Bytes</translation>
    </message>
    <message>
        <source>the text &quot;%1&quot; holds characters that an XML file cannot hold</source>
        <translation>der Text „%1“ enthält Zeichen, die in einer XML-Datei nicht vorkommen dürfen</translation>
    </message>
    <message>
        <source>elements are nested deeper than %1 levels</source>
        <translation>Elemente sind tiefer als %1 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>an element&apos;s name is longer than %1 bytes</source>
        <translation>der Name eines Elements ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>element &quot;%1&quot; has more than %2 attributes</source>
        <translation>das Element „%1“ hat mehr als %2 Attribute</translation>
    </message>
    <message>
        <source>an attribute&apos;s name is longer than %1 bytes</source>
        <translation>der Name eines Attributs ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; is longer than %2 bytes</source>
        <translation>das Attribut „%1“ ist länger als %2 Bytes</translation>
    </message>
    <message>
        <source>syntax error</source>
        <translation>Syntaxfehler</translation>
    </message>
    <message>
        <source>partial character</source>
        <translation>unvollständiges Zeichen</translation>
    </message>
    <message>
        <source>duplicate attribute</source>
        <translation>ein Attribut kommt zweimal vor</translation>
    </message>
    <message>
        <source>undefined entity</source>
        <translation>unbekannte Entität</translation>
    </message>
    <message>
        <source>reference to invalid character number</source>
        <translation>Verweis auf ein ungültiges Zeichen</translation>
    </message>
    <message>
        <source>XML or text declaration not at start of entity</source>
        <translation>die XML-Deklaration steht nicht am Anfang</translation>
    </message>
    <message>
        <source>XML declaration not well-formed</source>
        <translation>die XML-Deklaration ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>unknown encoding</source>
        <translation>unbekannte Kodierung</translation>
    </message>
    <message>
        <source>encoding specified in XML declaration is incorrect</source>
        <translation>die Kodierung der XML-Deklaration stimmt nicht</translation>
    </message>
    <message>
        <source>unclosed CDATA section</source>
        <translation>ein CDATA-Abschnitt ist nicht abgeschlossen</translation>
    </message>
    <message>
        <source>unbound prefix</source>
        <translation>ein Präfix ist nicht erklärt</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>element &quot;%1&quot;: its text is &quot;%2&quot;, which is not %3</source>
        <translation>Element „%1“: der Text ist „%2“, also nicht %3</translation>
    </message>
    <message>
        <source>element &quot;%1&quot;: attribute &quot;%2&quot; is &quot;%3&quot;, which is not %4</source>
        <translation>Element „%1“: das Attribut „%2“ ist „%3“, also nicht %4</translation>
    </message>
    <message>
        <source>element &quot;%1&quot; lacks the required attribute &quot;%2&quot;</source>
        <translation>dem Element „%1“ fehlt das erforderliche Attribut „%2“</translation>
    </message>
    <message>
        <source>a Boolean (true or false)</source>
        <translation>ein Wahrheitswert (true oder false)</translation>
    </message>
    <message>
        <source>an integer</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>element &quot;%1&quot;: its text is &quot;%2&quot;, which is not an operation (0 to %3)</source>
        <translation>Element „%1“: der Text ist „%2“, also keine Operation (0 bis %3)</translation>
    </message>
    <message>
        <source>the list is of version %1, and this program knows version %2: what is new in it is not kept when the project is saved</source>
        <translation>die Liste hat die Version %1, und dieses Programm kennt die Version %2: was darin neu ist, geht beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>the text in &quot;%1&quot; is not kept when the project is saved</source>
        <translation>der Text in „%1“ geht beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>unknown element &quot;%1&quot; in &quot;%2&quot; is not kept when the project is saved</source>
        <translation>das unbekannte Element „%1“ in „%2“ geht beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>unknown attribute &quot;%1&quot; of &quot;%2&quot; is not kept when the project is saved</source>
        <translation>das unbekannte Attribut „%1“ von „%2“ geht beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>the record of an entry for &quot;%1&quot; is not kept when the project is saved</source>
        <translation>die Angaben eines Eintrags für „%1“ gehen beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>one of several elements &quot;%1&quot; in one &quot;%2&quot; is not kept when the project is saved</source>
        <translation>eines von mehreren Elementen „%1“ in einem „%2“ geht beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>%1 file entries have the same configuration, platform and name as a later one, which counts; the earlier ones are not kept when the project is saved</source>
        <translation>%1 Einträge haben Konfiguration, Plattform und Namen eines späteren, der zählt; die früheren gehen beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>%1 more unknown elements and attributes are not kept when the project is saved</source>
        <translation>%1 weitere unbekannte Elemente und Attribute gehen beim Speichern des Projekts verloren</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: its remote directory &quot;%2&quot; on &quot;%3&quot; goes above the root of the target</source>
        <translation>„%1“: das Zielverzeichnis „%2“ auf „%3“ liegt oberhalb des Wurzelverzeichnisses des Ziels</translation>
    </message>
    <message>
        <source>the entry was not made by a deployment</source>
        <translation>der Eintrag stammt aus keiner Verteilung</translation>
    </message>
    <message>
        <source>the entry belongs to another deployment</source>
        <translation>der Eintrag gehört zu einer anderen Verteilung</translation>
    </message>
    <message>
        <source>no optional files are offered: %1</source>
        <translation>es werden keine optionalen Dateien angeboten: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is the output for iOSDevice32 and for iOSDevice64; without a directory for each platform no 32-bit program can go beside the 64-bit one (%2)</source>
        <translation>„%1“ ist die Ausgabe für iOSDevice32 und für iOSDevice64; ohne ein Verzeichnis je Plattform kann kein 32-Bit-Programm neben dem mit 64 Bit stehen (%2)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and &quot;%2&quot; differ in case only; they have one entry, which is that of &quot;%3&quot;</source>
        <translation>„%1“ und „%2“ unterscheiden sich nur in Groß- und Kleinschreibung; sie haben einen Eintrag, den von „%3“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has two roles for %2: &quot;%3&quot; and &quot;%4&quot;; one file has one entry, which is that of &quot;%5&quot;</source>
        <translation>„%1“ hat zwei Rollen für %2: „%3“ und „%4“; eine Datei hat einen Eintrag, den von „%5“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has two roles for %2: &quot;%3&quot; and &quot;%4&quot;; one file has one entry, which is that of &quot;%5&quot;, with the values of a new one</source>
        <translation>„%1“ hat zwei Rollen für %2: „%3“ und „%4“; eine Datei hat einen Eintrag, den von „%5“, mit den Werten eines neuen</translation>
    </message>
    <message>
        <source>the element &quot;%1&quot; holds elements where a text is wanted</source>
        <translation>das Element „%1“ enthält Elemente statt eines Textes</translation>
    </message>
    <message>
        <source>the platform &quot;%1&quot; of the file &quot;%2&quot; holds no &quot;RemoteDir&quot;</source>
        <translation>die Plattform „%1“ der Datei „%2“ enthält kein „RemoteDir“</translation>
    </message>
    <message>
        <source>the file &quot;%1&quot; has two &quot;RemoteDir&quot; for &quot;%2&quot;</source>
        <translation>die Datei „%1“ hat zwei „RemoteDir“ für „%2“</translation>
    </message>
    <message>
        <source>the feature class &quot;%1&quot; stands twice</source>
        <translation>die Klasse „%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>the name of a file is empty</source>
        <translation>der Name einer Datei ist leer</translation>
    </message>
    <message>
        <source>the file name &quot;%1&quot; holds characters that a project cannot hold</source>
        <translation>der Dateiname „%1“ enthält Zeichen, die ein Projekt nicht speichern kann</translation>
    </message>
    <message>
        <source>the path holds a &quot;\&quot;, which this program takes for a path delimiter</source>
        <translation>der Pfad enthält einen „\“, den dieses Programm für ein Trennzeichen hält</translation>
    </message>
    <message>
        <source>the project carries no deployment</source>
        <translation>das Projekt enthält keine Verteilung</translation>
    </message>
    <message>
        <source>the package is of an older version, which does not tell its number; it does not go with %1</source>
        <translation>das Paket ist von einer älteren Version, die ihre Nummer nicht nennt; es passt nicht zu %1</translation>
    </message>
    <message>
        <source>the package of %1 does not go with %2</source>
        <translation>das Paket von %1 passt nicht zu %2</translation>
    </message>
    <message>
        <source>%1 of this program</source>
        <translation>%1 dieses Programms</translation>
    </message>
    <message>
        <source>the package cannot be loaded: %1</source>
        <translation>das Paket kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>the module is no deployment package: %1</source>
        <translation>das Modul ist kein Verteilungspaket: %1</translation>
    </message>
    <message>
        <source>the package did not come to life</source>
        <translation>das Paket ließ sich nicht starten</translation>
    </message>
    <message>
        <source>the package could not be started: %1</source>
        <translation>das Paket konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>the package offers no Deployment Manager</source>
        <translation>das Paket bietet keinen Deployment Manager</translation>
    </message>
    <message>
        <source>the package shows no Deployment Manager for it</source>
        <translation>das Paket zeigt dafür keinen Deployment Manager</translation>
    </message>
    <message>
        <source>the build&apos;s configuration &quot;%1&quot; holds characters that a project cannot hold there</source>
        <translation>die Konfiguration „%1“ des Builds enthält Zeichen, die ein Projekt dort nicht speichern kann</translation>
    </message>
    <message>
        <source>platform table</source>
        <translation>Plattformtabelle</translation>
    </message>
    <message>
        <source>imported project file</source>
        <translation>importierte Projektdatei</translation>
    </message>
    <message>
        <source>MSBuild template</source>
        <translation>MSBuild-Vorlage</translation>
    </message>
    <message>
        <source>side file</source>
        <translation>Begleitdatei</translation>
    </message>
    <message>
        <source>recovery journal</source>
        <translation>Wiederherstellungsprotokoll</translation>
    </message>
    <message>
        <source>the project is shown already, as %1</source>
        <translation>das Projekt wird bereits gezeigt, als %1</translation>
    </message>
    <message>
        <source>is no project that this program knows</source>
        <translation>ist kein Projekt, das dieses Programm kennt</translation>
    </message>
    <message>
        <source>it is made from a project by each save; open the project</source>
        <translation>sie entsteht bei jedem Speichern aus einem Projekt; öffnen Sie das Projekt</translation>
    </message>
    <message>
        <source>the solution names %1 as a project, which is a solution itself</source>
        <translation>die Projektmappe nennt %1 als Projekt, das selbst eine Projektmappe ist</translation>
    </message>
    <message>
        <source>the solution names a project that is not there: %1</source>
        <translation>die Projektmappe nennt ein Projekt, das nicht da ist: %1</translation>
    </message>
    <message>
        <source>the recovery journal is of another project, %1</source>
        <translation>das Wiederherstellungsprotokoll gehört zu einem anderen Projekt, %1</translation>
    </message>
    <message>
        <source>the recovery journal cannot be removed: %1</source>
        <translation>das Wiederherstellungsprotokoll kann nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>it was written by another version of this program (format %1)</source>
        <translation>es wurde von einer anderen Version dieses Programms geschrieben (Format %1)</translation>
    </message>
    <message>
        <source>it is no recovery journal</source>
        <translation>es ist kein Wiederherstellungsprotokoll</translation>
    </message>
    <message>
        <source>making the file</source>
        <translation>Anlegen der Datei</translation>
    </message>
    <message>
        <source>locking the file</source>
        <translation>Sperren der Datei</translation>
    </message>
    <message>
        <source>looking at the file</source>
        <translation>Ansehen der Datei</translation>
    </message>
    <message>
        <source>it would be too large; a save starts a new one</source>
        <translation>es würde zu groß; Speichern beginnt ein neues</translation>
    </message>
    <message>
        <source>there is no such %1: the installation is not complete; --root or the variable ZELK names another one</source>
        <translation>%1 fehlt: die Installation ist unvollständig; --root oder die Variable ZELK nennt eine andere</translation>
    </message>
    <message>
        <source>the profile &quot;%1&quot; is of another host</source>
        <translation>das Profil „%1“ gehört zu einem anderen Programm</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; is empty</source>
        <translation>das Attribut „%1“ ist leer</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; is &quot;%2&quot;, which leaves the project&apos;s directory on the target</source>
        <translation>das Attribut „%1“ ist „%2“, was das Verzeichnis des Projekts auf dem Ziel verlässt</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; is &quot;%2&quot;, known is &quot;%3&quot;</source>
        <translation>das Attribut „%1“ ist „%2“, bekannt ist „%3“</translation>
    </message>
    <message>
        <source>the platform &quot;%1&quot; has the output kind &quot;%2&quot; twice</source>
        <translation>die Plattform „%1“ hat die Ausgabeart „%2“ zweimal</translation>
    </message>
    <message>
        <source>the platform &quot;%1&quot; has the personality &quot;%2&quot; twice</source>
        <translation>die Plattform „%1“ hat die Personality „%2“ zweimal</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands for every platform and cannot name one</source>
        <translation>„%1“ steht für alle Plattformen und kann keine einzelne benennen</translation>
    </message>
    <message>
        <source>a platform has no such element</source>
        <translation>eine Plattform hat kein solches Element</translation>
    </message>
    <message>
        <source>the root of a platform table is &quot;Platforms&quot;</source>
        <translation>die Wurzel einer Plattformtabelle heißt „Platforms“</translation>
    </message>
    <message>
        <source>a platform table has no such element</source>
        <translation>eine Plattformtabelle hat kein solches Element</translation>
    </message>
    <message>
        <source>the platform &quot;%1&quot; stands in the table twice</source>
        <translation>die Plattform „%1“ steht zweimal in der Tabelle</translation>
    </message>
    <message>
        <source>the table has no platform</source>
        <translation>die Tabelle hat keine Plattform</translation>
    </message>
    <message>
        <source>the root element is &quot;%1&quot;, which is no MSBuild project</source>
        <translation>das Wurzelelement ist „%1“, also kein MSBuild-Projekt</translation>
    </message>
    <message>
        <source>the project holds a second section &quot;%1&quot;; the first one stands in line %2</source>
        <translation>das Projekt enthält einen zweiten Abschnitt „%1“; der erste steht in Zeile %2</translation>
    </message>
    <message>
        <source>the project has no group of items with the label &quot;%1&quot;</source>
        <translation>das Projekt hat keine Gruppe von Elementen mit dem Label „%1“</translation>
    </message>
    <message>
        <source>the item &quot;%1&quot; stands for several platforms; give &quot;%2&quot; an item of its own first</source>
        <translation>das Element „%1“ steht für mehrere Plattformen; geben Sie „%2“ zuerst ein eigenes</translation>
    </message>
    <message>
        <source>the project file has no item &quot;%1&quot; of its own for &quot;%2&quot;</source>
        <translation>die Projektdatei hat kein eigenes Element „%1“ für „%2“</translation>
    </message>
    <message>
        <source>the parent &quot;%1&quot; of the configuration &quot;%2&quot; is not in the project; it inherits from &quot;%3&quot;</source>
        <translation>die Konfiguration „%1“, von der „%2“ erbt, fehlt im Projekt; sie erbt von „%3“</translation>
    </message>
    <message>
        <source>the parent &quot;%1&quot; of the configuration &quot;%2&quot; inherits from it in turn; it inherits from &quot;%3&quot;</source>
        <translation>die Konfiguration „%1“, von der „%2“ erbt, erbt selbst von ihr; sie erbt von „%3“</translation>
    </message>
    <message>
        <source>nothing here says it</source>
        <translation>nichts hier sagt es</translation>
    </message>
    <message>
        <source>it is not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>the build or the environment sets it</source>
        <translation>der Build oder die Umgebung setzt es</translation>
    </message>
    <message>
        <source>the build system sets it</source>
        <translation>das Buildsystem setzt sie</translation>
    </message>
    <message>
        <source>the property &quot;%1&quot; is &quot;%2&quot;, which is not %3</source>
        <translation>die Eigenschaft „%1“ ist „%2“, also nicht %3</translation>
    </message>
    <message>
        <source>the item &quot;%1&quot; of &quot;%2&quot; was left out: %3</source>
        <translation>das Element „%1“ von „%2“ wurde ausgelassen: %3</translation>
    </message>
    <message>
        <source>what a build of %1, %2 makes is not known: %3</source>
        <translation>was ein Build von %1, %2 erzeugt, ist nicht bekannt: %3</translation>
    </message>
    <message>
        <source>the solution %1</source>
        <translation>die Projektmappe %1</translation>
    </message>
    <message>
        <source>given on the command line</source>
        <translation>auf der Befehlszeile angegeben</translation>
    </message>
    <message>
        <source>the target</source>
        <translation>das Ziel</translation>
    </message>
    <message>
        <source>a build of %1, %2 %3: there is nothing to deploy</source>
        <translation>ein Build von %1, %2 %3: es gibt nichts zu verteilen</translation>
    </message>
    <message>
        <source>it is not known what a build of %1, %2 makes</source>
        <translation>es ist nicht bekannt, was ein Build von %1, %2 erzeugt</translation>
    </message>
    <message>
        <source>makes a static library, which other builds link</source>
        <translation>erzeugt eine statische Bibliothek, die andere Builds einbinden</translation>
    </message>
    <message>
        <source>is a utility, which makes no program or library</source>
        <translation>ist ein Hilfsprojekt, das weder Programm noch Bibliothek erzeugt</translation>
    </message>
    <message>
        <source>is of the type &quot;%1&quot;, which makes no known kind of file</source>
        <translation>ist von der Art „%1“, die keine bekannte Datei erzeugt</translation>
    </message>
    <message>
        <source>runs commands and names no output (NMakeOutput)</source>
        <translation>führt Befehle aus und nennt keine Ausgabe (NMakeOutput)</translation>
    </message>
    <message>
        <source>several solutions name the project: &quot;%1&quot; is taken, and not &quot;%2&quot;</source>
        <translation>mehrere Projektmappen nennen das Projekt: „%1“ wird genommen, nicht „%2“</translation>
    </message>
    <message>
        <source>the project has no configuration &quot;%1&quot;, which its property &quot;Config&quot; names</source>
        <translation>das Projekt hat keine Konfiguration „%1“, die seine Eigenschaft „Config“ nennt</translation>
    </message>
    <message>
        <source>the project that is referred to cannot be read: %1</source>
        <translation>das Projekt, auf das verwiesen wird, kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>it is not a file of this machine</source>
        <translation>es ist keine Datei dieses Rechners</translation>
    </message>
    <message>
        <source>the references go too far</source>
        <translation>die Verweise gehen zu weit</translation>
    </message>
    <message>
        <source>it is not known which of its targets is built with %1, %2</source>
        <translation>es ist nicht bekannt, welches seiner Ziele mit %1, %2 gebaut wird</translation>
    </message>
    <message>
        <source>nothing of the project &quot;%1&quot; is deployed with this one: %2</source>
        <translation>aus dem Projekt „%1“ wird mit diesem nichts verteilt: %2</translation>
    </message>
    <message>
        <source>the file is empty, so it is no solution</source>
        <translation>die Datei ist leer, also keine Projektmappe</translation>
    </message>
    <message>
        <source>this is no solution: &quot;%1&quot; stands where the format is named</source>
        <translation>dies ist keine Projektmappe: „%1“ steht, wo das Format genannt wird</translation>
    </message>
    <message>
        <source>a quote of the project is not closed</source>
        <translation>ein Anführungszeichen des Projekts ist nicht geschlossen</translation>
    </message>
    <message>
        <source>the project lacks its type, name, path or id</source>
        <translation>dem Projekt fehlen Art, Name, Pfad oder Kennung</translation>
    </message>
    <message>
        <source>the solution names more than %1 projects</source>
        <translation>die Projektmappe nennt mehr als %1 Projekte</translation>
    </message>
    <message>
        <source>projects wait for each other in a ring: %1</source>
        <translation>Projekte warten im Kreis aufeinander: %1</translation>
    </message>
    <message>
        <source>folders lie in each other in a ring: %1</source>
        <translation>Ordner liegen im Kreis ineinander: %1</translation>
    </message>
    <message>
        <source>the wildcard &quot;%1&quot; stands for more than %2 files and directories</source>
        <translation>der Platzhalter „%1“ steht für mehr als %2 Dateien und Verzeichnisse</translation>
    </message>
    <message>
        <source>the wildcard &quot;%1&quot; is one too many: holding the wildcards of the project against the files takes too long</source>
        <translation>der Platzhalter „%1“ ist einer zu viel: der Vergleich der Platzhalter des Projekts mit den Dateien dauert zu lange</translation>
    </message>
    <message>
        <source>the value of &quot;%1&quot; grows too long</source>
        <translation>der Wert von „%1“ wird zu lang</translation>
    </message>
    <message>
        <source>the condition &quot;%1&quot; is not valid: at character %2, %3</source>
        <translation>die Bedingung „%1“ ist ungültig: bei Zeichen %2, %3</translation>
    </message>
    <message>
        <source>the condition is complete before this</source>
        <translation>die Bedingung ist davor schon vollständig</translation>
    </message>
    <message>
        <source>a &quot;)&quot; is missing</source>
        <translation>eine „)“ fehlt</translation>
    </message>
    <message>
        <source>there is no function &quot;%1&quot;</source>
        <translation>es gibt keine Funktion „%1“</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>ein Wert fehlt</translation>
    </message>
    <message>
        <source>the condition &quot;%1&quot; is nested deeper than %2 levels</source>
        <translation>die Bedingung „%1“ ist tiefer als %2 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>the condition &quot;%1&quot; asks for a Boolean where the value is &quot;%2&quot;</source>
        <translation>die Bedingung „%1“ verlangt einen Wahrheitswert, der Wert ist aber „%2“</translation>
    </message>
    <message>
        <source>the condition &quot;%1&quot; asks for a number where the value is &quot;%2&quot;</source>
        <translation>die Bedingung „%1“ verlangt eine Zahl, der Wert ist aber „%2“</translation>
    </message>
    <message>
        <source>the condition &quot;%1&quot; is longer than %2 bytes</source>
        <translation>die Bedingung „%1“ ist länger als %2 Bytes</translation>
    </message>
    <message>
        <source>a &quot;$(&quot; is not closed</source>
        <translation>ein „$(“ ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a quote is not closed</source>
        <translation>ein Anführungszeichen ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a &quot;(&quot; is missing behind &quot;$&quot;</source>
        <translation>hinter „$“ fehlt eine „(“</translation>
    </message>
    <message>
        <source>&quot;=&quot; alone does not compare, &quot;==&quot; does</source>
        <translation>„=“ allein vergleicht nicht, „==“ schon</translation>
    </message>
    <message>
        <source>this character has no meaning here</source>
        <translation>dieses Zeichen hat hier keine Bedeutung</translation>
    </message>
    <message>
        <source>the property &quot;%1&quot; has no known value: %2</source>
        <translation>die Eigenschaft „%1“ hat keinen bekannten Wert: %2</translation>
    </message>
    <message>
        <source>the property &quot;%1&quot; is not known here: %2</source>
        <translation>die Eigenschaft „%1“ ist hier nicht bekannt: %2</translation>
    </message>
    <message>
        <source>the property &quot;%1&quot; cannot be assigned; the build itself sets it</source>
        <translation>die Eigenschaft „%1“ kann nicht zugewiesen werden; der Build selbst setzt sie</translation>
    </message>
    <message>
        <source>&quot;Choose&quot; is nested deeper than %1 levels</source>
        <translation>„Choose“ ist tiefer als %1 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>the condition of &quot;%1&quot; is not known: %2</source>
        <translation>die Bedingung von „%1“ ist nicht bekannt: %2</translation>
    </message>
    <message>
        <source>an import from an SDK was skipped</source>
        <translation>ein Import aus einem SDK wurde übersprungen</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: %2</source>
        <translation>der Import „%1“ wurde übersprungen: %2</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: it %2</source>
        <translation>der Import „%1“ wurde übersprungen: er %2</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: it is part of the project already</source>
        <translation>der Import „%1“ wurde übersprungen: er gehört schon zum Projekt</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: it is not a file of this machine</source>
        <translation>der Import „%1“ wurde übersprungen: er ist keine Datei dieses Rechners</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: it is no file</source>
        <translation>der Import „%1“ wurde übersprungen: er ist keine Datei</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: there is no such file</source>
        <translation>der Import „%1“ wurde übersprungen: es gibt keine solche Datei</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; was skipped: in line %2, %3</source>
        <translation>der Import „%1“ wurde übersprungen: in Zeile %2, %3</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; is no file</source>
        <translation>der Import „%1“ ist keine Datei</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; has %2 bytes; at most %3 are read</source>
        <translation>der Import „%1“ hat %2 Bytes; höchstens %3 werden gelesen</translation>
    </message>
    <message>
        <source>the import &quot;%1&quot; is nested deeper than %2 levels</source>
        <translation>der Import „%1“ ist tiefer als %2 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>the project imports more than %1 files</source>
        <translation>das Projekt importiert mehr als %1 Dateien</translation>
    </message>
    <message>
        <source>the item &quot;%1&quot; lacks the attribute &quot;Include&quot;</source>
        <translation>dem Element „%1“ fehlt das Attribut „Include“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of the item &quot;%2&quot; was left out: it %3</source>
        <translation>„%1“ des Elements „%2“ wurde ausgelassen: es %3</translation>
    </message>
    <message>
        <source>holds a list inside a name</source>
        <translation>enthält eine Liste in einem Namen</translation>
    </message>
    <message>
        <source>looks for files outside the project&apos;s directory</source>
        <translation>sucht Dateien außerhalb des Projektverzeichnisses</translation>
    </message>
    <message>
        <source>is longer than any path</source>
        <translation>ist länger als jeder Pfad</translation>
    </message>
    <message>
        <source>looks for files that are not on this machine</source>
        <translation>sucht Dateien, die nicht auf diesem Rechner sind</translation>
    </message>
    <message>
        <source>walks through everything above the project&apos;s directory</source>
        <translation>geht durch alles oberhalb des Projektverzeichnisses</translation>
    </message>
    <message>
        <source>the item &quot;%1&quot; makes the lists of the project grow too long</source>
        <translation>das Element „%1“ lässt die Listen des Projekts zu lang werden</translation>
    </message>
    <message>
        <source>element &quot;%1&quot;: with its references replaced, &quot;%2&quot; grows too long</source>
        <translation>Element „%1“: mit eingesetzten Verweisen wird „%2“ zu lang</translation>
    </message>
    <message>
        <source>references are nested deeper than %1 levels</source>
        <translation>Verweise sind tiefer als %1 Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>&quot;$(%1)&quot; is not understood</source>
        <translation>„$(%1)“ wird nicht verstanden</translation>
    </message>
    <message>
        <source>&quot;$(%1)&quot; asks for a registry, which is not here</source>
        <translation>„$(%1)“ fragt nach einer Registrierung, die es hier nicht gibt</translation>
    </message>
    <message>
        <source>it calls &quot;%1&quot;, which is not evaluated here</source>
        <translation>sie ruft „%1“ auf, was hier nicht ausgewertet wird</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be carried out: %2</source>
        <translation>„%1“ kann nicht ausgeführt werden: %2</translation>
    </message>
    <message>
        <source>it does not take %1 arguments</source>
        <translation>sie nimmt keine %1 Argumente</translation>
    </message>
    <message>
        <source>the result is too long</source>
        <translation>das Ergebnis ist zu lang</translation>
    </message>
    <message>
        <source>the result is longer than %1 bytes</source>
        <translation>das Ergebnis ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>a number is divided by zero</source>
        <translation>eine Zahl wird durch null geteilt</translation>
    </message>
    <message>
        <source>a version has no %1 parts</source>
        <translation>eine Version hat keine %1 Teile</translation>
    </message>
    <message>
        <source>a part of a version is out of range</source>
        <translation>ein Teil einer Version ist zu groß oder zu klein</translation>
    </message>
    <message>
        <source>the path is empty</source>
        <translation>der Pfad ist leer</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name of a file</source>
        <translation>„%1“ ist kein Dateiname</translation>
    </message>
    <message>
        <source>a position is negative</source>
        <translation>eine Position ist negativ</translation>
    </message>
    <message>
        <source>a position lies behind the end of the text</source>
        <translation>eine Position liegt hinter dem Ende des Textes</translation>
    </message>
    <message>
        <source>the text to be replaced is empty</source>
        <translation>der zu ersetzende Text ist leer</translation>
    </message>
    <message>
        <source>the width is out of range</source>
        <translation>die Breite ist zu groß oder zu klein</translation>
    </message>
    <message>
        <source>the format &quot;%1&quot; is not understood</source>
        <translation>das Format „%1“ wird nicht verstanden</translation>
    </message>
    <message>
        <source>the list has no item %1</source>
        <translation>die Liste hat kein Element %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number</source>
        <translation>„%1“ ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no version</source>
        <translation>„%1“ ist keine Version</translation>
    </message>
    <message>
        <source>this is no build directory of CMake or Meson: it has neither a CMakeCache.txt nor a directory meson-info</source>
        <translation>dies ist kein Buildverzeichnis von CMake oder Meson: es hat weder eine CMakeCache.txt noch ein Verzeichnis meson-info</translation>
    </message>
    <message>
        <source>CMake has not told the install rules of this directory yet, and a dry run does not ask it</source>
        <translation>CMake hat die Installationsregeln dieses Verzeichnisses noch nicht genannt, und ein Probelauf fragt nicht danach</translation>
    </message>
    <message>
        <source>the project was not made from a build: it has no item &quot;%1&quot; with a platform</source>
        <translation>das Projekt stammt aus keinem Build: ihm fehlt das Element „%1“ mit einer Plattform</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is installed a second time, here; the list has one entry for one file, which is that of %2</source>
        <translation>„%1“ wird hier ein zweites Mal installiert; die Liste hat einen Eintrag je Datei, den von %2</translation>
    </message>
    <message>
        <source>the build runs a script when it installs; what that does is not in the list</source>
        <translation>der Build führt beim Installieren ein Skript aus; was das tut, steht nicht in der Liste</translation>
    </message>
    <message>
        <source>a rule of the type &quot;%1&quot; makes no entry</source>
        <translation>eine Regel der Art „%1“ ergibt keinen Eintrag</translation>
    </message>
    <message>
        <source>the rule chooses files by patterns, which CMake does not tell; all files of the directory are taken</source>
        <translation>die Regel wählt Dateien nach Mustern, die CMake nicht nennt; alle Dateien des Verzeichnisses werden genommen</translation>
    </message>
    <message>
        <source>the reply of CMake cannot be read: %1</source>
        <translation>die Antwort von CMake kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>the reply of CMake</source>
        <translation>die Antwort von CMake</translation>
    </message>
    <message>
        <source>CMake cache</source>
        <translation>CMake-Cache</translation>
    </message>
    <message>
        <source>the install plan of Meson</source>
        <translation>der Installationsplan von Meson</translation>
    </message>
    <message>
        <source>the targets of Meson</source>
        <translation>die Ziele von Meson</translation>
    </message>
    <message>
        <source>the options of Meson</source>
        <translation>die Optionen von Meson</translation>
    </message>
    <message>
        <source>the summary of Meson</source>
        <translation>die Zusammenfassung von Meson</translation>
    </message>
    <message>
        <source>the file changed after CMake ran; run &quot;cmake %1&quot; to have its rules</source>
        <translation>die Datei wurde nach dem Lauf von CMake geändert; „cmake %1“ bringt ihre Regeln</translation>
    </message>
    <message>
        <source>the question to CMake cannot be written</source>
        <translation>die Anfrage an CMake kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>it left no reply; 3.14 is the first version that does</source>
        <translation>er hinterließ keine Antwort; 3.14 ist die erste Version, die das tut</translation>
    </message>
    <message>
        <source>&quot;%1&quot;, which tells the install rules: %2</source>
        <translation>„%1“, was die Installationsregeln nennt: %2</translation>
    </message>
    <message>
        <source>CMake has left no reply there</source>
        <translation>CMake hat dort keine Antwort hinterlassen</translation>
    </message>
    <message>
        <source>%1: its root %2</source>
        <translation>%1: die Wurzel %2</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no object</source>
        <translation>%1: „%2“ ist kein Objekt</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no array</source>
        <translation>%1: „%2“ ist kein Feld</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no text</source>
        <translation>%1: „%2“ ist kein Text</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no Boolean</source>
        <translation>%1: „%2“ ist kein Wahrheitswert</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is empty</source>
        <translation>%1: „%2“ ist leer</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no member &quot;%3&quot;</source>
        <translation>%1: „%2“ hat kein Mitglied „%3“</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no value of number %3</source>
        <translation>%1: „%2“ hat keinen Wert Nummer %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is %3; known is %4</source>
        <translation>%1: „%2“ ist %3; bekannt ist %4</translation>
    </message>
    <message>
        <source>is no object</source>
        <translation>ist kein Objekt</translation>
    </message>
    <message>
        <source>is no array</source>
        <translation>ist kein Feld</translation>
    </message>
    <message>
        <source>is no whole number</source>
        <translation>ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>is no name of a file</source>
        <translation>ist kein Dateiname</translation>
    </message>
    <message>
        <source>has no member &quot;%1&quot;</source>
        <translation>hat kein Mitglied „%1“</translation>
    </message>
    <message>
        <source>has no rules; CMake 3.21 is the first version that tells them</source>
        <translation>hat keine Regeln; CMake 3.21 ist die erste Version, die sie nennt</translation>
    </message>
    <message>
        <source>names no code model; run &quot;cmake %1&quot;</source>
        <translation>nennt kein Codemodell; „cmake %1“ bringt eines</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no rules; CMake 3.21 is the first version that tells them</source>
        <translation>%1: „%2“ hat keine Regeln; CMake 3.21 ist die erste Version, die sie nennt</translation>
    </message>
    <message>
        <source>the rule installs &quot;%1&quot;, a name that a project cannot hold</source>
        <translation>die Regel installiert „%1“, einen Namen, den ein Projekt nicht speichern kann</translation>
    </message>
    <message>
        <source>the destination &quot;%1&quot; is absolute and not below the install prefix; make it relative, or name the components to be taken and leave &quot;%2&quot; out</source>
        <translation>das Ziel „%1“ ist absolut und liegt nicht unter dem Installationspräfix; machen Sie es relativ, oder nennen Sie die Komponenten, die genommen werden sollen, ohne „%2“</translation>
    </message>
    <message>
        <source>the destination &quot;%1&quot; is absolute and not below the install prefix &quot;%2&quot;; make it relative, or name the components to be taken and leave &quot;%3&quot; out</source>
        <translation>das Ziel „%1“ ist absolut und liegt nicht unter dem Installationspräfix „%2“; machen Sie es relativ, oder nennen Sie die Komponenten, die genommen werden sollen, ohne „%3“</translation>
    </message>
    <message>
        <source>the rule installs to &quot;%1&quot;, which is above the install prefix</source>
        <translation>die Regel installiert nach „%1“, oberhalb des Installationspräfixes</translation>
    </message>
    <message>
        <source>the rule is optional and &quot;%1&quot; is not there; it is left out</source>
        <translation>die Regel ist optional, und „%1“ fehlt; sie wird ausgelassen</translation>
    </message>
    <message>
        <source>the rule installs a file as &quot;%1&quot;, which is no name of a file</source>
        <translation>die Regel installiert eine Datei als „%1“, was kein Dateiname ist</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a link to a directory; what is behind it is left out</source>
        <translation>„%1“ ist ein Link auf ein Verzeichnis; was dahinter liegt, wird ausgelassen</translation>
    </message>
    <message>
        <source>the directory &quot;%1&quot; cannot be read: %2; its files are left out</source>
        <translation>das Verzeichnis „%1“ kann nicht gelesen werden: %2; seine Dateien werden ausgelassen</translation>
    </message>
    <message>
        <source>the build has no component &quot;%1&quot;; known are: %2</source>
        <translation>der Build hat keine Komponente „%1“; bekannt sind: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; goes to &quot;%2&quot;, a place that Meson does not tell; it is left out</source>
        <translation>„%1“ kommt nach „%2“, an einen Ort, den Meson nicht nennt; es wird ausgelassen</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>HelpTopics</name>
    <message>
        <source>Featured Files</source>
        <translation>Zusätzliche Dateien</translation>
    </message>
    <message>
        <source>Features are sets of optional files, such as run-time libraries, that a program may need on its target.

Tick a feature, one of its platforms, or single files. With OK the ticked files are put on the deployment list for every configuration, and the others are taken off it. Cancel changes nothing.

With &quot;Show automatically when required&quot; this dialog opens by itself when a file is added to the project that usually needs one of the features.</source>
        <translation>Zusätzliche Dateien sind Gruppen von Dateien, etwa Laufzeitbibliotheken, die ein Programm auf dem Zielgerät brauchen kann.

Haken Sie eine Gruppe, eine ihrer Plattformen oder einzelne Dateien an. Mit OK kommen die angehakten Dateien für jede Konfiguration auf die Verteilungsliste, die übrigen werden von ihr genommen. Abbrechen ändert nichts.

Mit „Bei Bedarf automatisch zeigen“ öffnet sich dieser Dialog von selbst, wenn eine Datei zum Projekt kommt, die gewöhnlich eine der Gruppen braucht.</translation>
    </message>
</context>
<context>
    <name>Package</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Select Platforms</source>
        <translation>Plattformen wählen</translation>
    </message>
    <message>
        <source>Featured Files</source>
        <translation>Zusätzliche Dateien</translation>
    </message>
    <message>
        <source>Please specify the action</source>
        <translation>Bitte die Aktion angeben</translation>
    </message>
    <message>
        <source>Warning: This action could remove any file entry that you manually added to the target configurations and platforms.</source>
        <translation>Warnung: Dies kann jeden Dateieintrag entfernen, den Sie für die betroffenen Konfigurationen und Plattformen von Hand hinzugefügt haben.</translation>
    </message>
    <message>
        <source>Revert to default options:</source>
        <translation>Auf die Vorgaben zurücksetzen:</translation>
    </message>
    <message>
        <source>Revert for all configurations of the active platform</source>
        <translation>Für alle Konfigurationen der aktiven Plattform zurücksetzen</translation>
    </message>
    <message>
        <source>Revert for all configurations and platforms</source>
        <translation>Für alle Konfigurationen und Plattformen zurücksetzen</translation>
    </message>
    <message>
        <source>Keep added files</source>
        <translation>Hinzugefügte Dateien behalten</translation>
    </message>
    <message>
        <source>Remote Path</source>
        <translation>Zielverzeichnis</translation>
    </message>
    <message>
        <source>Enter the new Remote Path</source>
        <translation>Geben Sie das neue Zielverzeichnis ein</translation>
    </message>
    <message>
        <source>Are you sure you want to change the value for the selected items ?</source>
        <translation>Soll der Wert der ausgewählten Einträge wirklich geändert werden?</translation>
    </message>
    <message>
        <source>Local Path</source>
        <translation>Lokaler Pfad</translation>
    </message>
    <message>
        <source>Local Name</source>
        <translation>Lokaler Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Platforms</source>
        <translation>Plattformen</translation>
    </message>
    <message>
        <source>Remote Name</source>
        <translation>Zielname</translation>
    </message>
    <message>
        <source>Remote Status</source>
        <translation>Zielstatus</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Reconcile</source>
        <translation>Abgleichen</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Delete Selected Files</source>
        <translation>Ausgewählte Dateien löschen</translation>
    </message>
    <message>
        <source>Add Featured Files</source>
        <translation>Zusätzliche Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Deploy</source>
        <translation>Verteilen</translation>
    </message>
    <message>
        <source>Connect to Remote Machine</source>
        <translation>Mit dem Zielgerät verbinden</translation>
    </message>
    <message>
        <source>Revert to Default</source>
        <translation>Auf die Vorgaben zurücksetzen</translation>
    </message>
    <message>
        <source>Check All Items</source>
        <translation>Alle anhaken</translation>
    </message>
    <message>
        <source>Uncheck All Items</source>
        <translation>Haken bei allen entfernen</translation>
    </message>
    <message>
        <source>Check Selected Items</source>
        <translation>Ausgewählte anhaken</translation>
    </message>
    <message>
        <source>Uncheck Selected Items</source>
        <translation>Haken bei ausgewählten entfernen</translation>
    </message>
    <message>
        <source>Change Remote Path for Selected Items</source>
        <translation>Zielverzeichnis der ausgewählten Einträge ändern</translation>
    </message>
    <message>
        <source>Change Overwrite value for selected items</source>
        <translation>„Überschreiben“ der ausgewählten Einträge umschalten</translation>
    </message>
    <message>
        <source>A connection profile is required for deployment. Would you like to create one and assign it to the &quot;%s&quot; platform?</source>
        <translation>Zum Verteilen wird ein Verbindungsprofil gebraucht. Möchten Sie eines anlegen und der Plattform „%s“ zuweisen?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete file &quot;%s&quot;?</source>
        <translation>Soll die Datei „%s“ wirklich von der Liste gelöscht werden?</translation>
    </message>
    <message>
        <source>The active platform is &quot;%s&quot;. Would you like to set the &quot;%s&quot; platform as the active platform?</source>
        <translation>Die aktive Plattform ist „%s“. Soll „%s“ zur aktiven Plattform werden?</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Immer</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Same</source>
        <translation>Gleich</translation>
    </message>
    <message>
        <source>Newer</source>
        <translation>Neuer</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>Älter</translation>
    </message>
    <message>
        <source>Not Found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Not Connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>RecoveryQuestion</name>
    <message>
        <source>The project file was changed since; the edits are done to what it holds now.</source>
        <translation>Die Projektdatei wurde seitdem geändert; die Änderungen werden auf ihren jetzigen Inhalt angewandt.</translation>
    </message>
    <message>
        <source>The project file is gone.</source>
        <translation>Die Projektdatei gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The last edits cannot be read any more.</source>
        <translation>Die letzten Änderungen sind nicht mehr lesbar.</translation>
    </message>
    <message>
        <source>Unsaved Edits</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The program ended before edits of %1 were saved. They concern %2 entries; the last one was made on %3.</source>
        <translation>Das Programm endete, bevor Änderungen an %1 gespeichert waren. Sie betreffen %2 Einträge; die letzte ist vom %3.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Ask &amp;Later</source>
        <translation>Später &amp;fragen</translation>
    </message>
</context>
<context>
    <name>TButtonCellEditor</name>
    <message>
        <source>Choose (F4)</source>
        <translation>Auswählen (F4)</translation>
    </message>
</context>
<context>
    <name>TConsentDialog</name>
    <message>
        <source>Commands of the Project</source>
        <translation>Befehle des Projekts</translation>
    </message>
    <message>
        <source>The project wants to run these commands when it is deployed to %1. Run only what you trust. May they run, now and whenever they are the same there?</source>
        <translation>Das Projekt will diese Befehle ausführen, wenn es nach %1 verteilt wird. Führen Sie nur aus, dem Sie vertrauen. Dürfen sie laufen, jetzt und künftig, solange sie dort gleich bleiben?</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>&amp;Run Them</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>&amp;Do Not Run</source>
        <translation>&amp;Nicht ausführen</translation>
    </message>
    <message>
        <source>Files from Beyond the Project</source>
        <translation>Dateien von außerhalb des Projekts</translation>
    </message>
    <message>
        <source>The project wants to send these files, which stand beyond its directory. Send only what is meant to leave this machine. May they be sent, now and from now on?</source>
        <translation>Das Projekt will diese Dateien senden, die außerhalb seines Verzeichnisses liegen. Senden Sie nur, was diesen Rechner verlassen soll. Dürfen sie gesendet werden, jetzt und künftig?</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>&amp;Send Them</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>&amp;Nicht senden</translation>
    </message>
</context>
<context>
    <name>TDeployWords</name>
    <message>
        <source>Nothing was copied: files from beyond the project&apos;s directory may not be sent without your consent. They are:</source>
        <translation>Es wurde nichts kopiert: Dateien von außerhalb des Projektverzeichnisses dürfen nicht ohne Ihre Zustimmung gesendet werden. Es sind:</translation>
    </message>
    <message>
        <source>given its rights</source>
        <translation>Rechte gesetzt</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>nicht angetastet</translation>
    </message>
    <message>
        <source>Files that were changed on the target since they were deployed were left alone. In all: %1.</source>
        <translation>Dateien, die am Ziel seit dem Verteilen geändert wurden, blieben unangetastet. Insgesamt: %1.</translation>
    </message>
    <message>
        <source>Deploy again to go on where it stopped.</source>
        <translation>Verteilen Sie noch einmal, um dort fortzufahren, wo es aufgehört hat.</translation>
    </message>
    <message>
        <source>Make room on the target, then deploy again.</source>
        <translation>Schaffen Sie Platz auf dem Zielgerät und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Make the target&apos;s disk writable, or choose another directory in the profile, then deploy again.</source>
        <translation>Machen Sie den Datenträger des Zielgeräts beschreibbar oder wählen Sie im Profil ein anderes Verzeichnis und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Check that the file can be read here and that the profile&apos;s user may write to the directory on the target, then deploy again.</source>
        <translation>Prüfen Sie, ob die Datei hier lesbar ist und der Benutzer des Profils auf dem Zielgerät in das Verzeichnis schreiben darf, und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Wait until the build that writes the file has ended, then deploy again.</source>
        <translation>Warten Sie, bis der Build, der die Datei schreibt, beendet ist, und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Run the command by hand to see what it says, mend it, then deploy again.</source>
        <translation>Führen Sie den Befehl von Hand aus, um seine Meldung zu sehen, beheben Sie die Ursache und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>The file is on the target. Check there what has to be done with it, then deploy again.</source>
        <translation>Die Datei ist auf dem Zielgerät. Prüfen Sie dort, was mit ihr zu tun ist, und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Build the project, or take the file off the list, then deploy again.</source>
        <translation>Erstellen Sie das Projekt oder nehmen Sie die Datei von der Liste und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Check the target and the network, test the profile, then deploy again.</source>
        <translation>Prüfen Sie Zielgerät und Netz, testen Sie das Profil und verteilen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Files that failed: %1.</source>
        <translation>Fehlgeschlagene Dateien: %1.</translation>
    </message>
    <message>
        <source>The connection was lost: %1.</source>
        <translation>Die Verbindung ist abgerissen: %1.</translation>
    </message>
    <message>
        <source>In all: %1. Deploy again to repeat what failed.</source>
        <translation>Insgesamt: %1. Verteilen Sie noch einmal, um das Fehlgeschlagene zu wiederholen.</translation>
    </message>
    <message>
        <source>copied</source>
        <translation>kopiert</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>unverändert</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>belassen</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>übersprungen</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>Nothing was deployed.</source>
        <translation>Es wurde nichts verteilt.</translation>
    </message>
    <message>
        <source>Nothing was copied. Mend this first:</source>
        <translation>Es wurde nichts kopiert. Beheben Sie erst dies:</translation>
    </message>
    <message>
        <source>No connection: %1.</source>
        <translation>Keine Verbindung: %1.</translation>
    </message>
    <message>
        <source>Nothing was copied: commands of the project may not run without your consent. They are:</source>
        <translation>Es wurde nichts kopiert: Befehle des Projekts dürfen nicht ohne Ihre Zustimmung laufen. Es sind:</translation>
    </message>
    <message>
        <source>Would be: %1.</source>
        <translation>Es würden: %1.</translation>
    </message>
    <message>
        <source>Done: %1.</source>
        <translation>Fertig: %1.</translation>
    </message>
    <message>
        <source>Mend the cause, then deploy again: what is on the target already stays.</source>
        <translation>Beheben Sie die Ursache und verteilen Sie dann noch einmal: Was schon auf dem Zielgerät ist, bleibt.</translation>
    </message>
    <message>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>changed here</source>
        <translation>hier geändert</translation>
    </message>
    <message>
        <source>unknown there</source>
        <translation>dort unbekannt</translation>
    </message>
    <message>
        <source>changed there</source>
        <translation>dort geändert</translation>
    </message>
    <message>
        <source>changed here and there</source>
        <translation>hier und dort geändert</translation>
    </message>
    <message>
        <source>gone there</source>
        <translation>dort weg</translation>
    </message>
    <message>
        <source>not in the list</source>
        <translation>nicht in der Liste</translation>
    </message>
    <message>
        <source>not in the list, changed there</source>
        <translation>nicht in der Liste, dort geändert</translation>
    </message>
    <message>
        <source>missing here</source>
        <translation>hier fehlend</translation>
    </message>
    <message>
        <source>%1 cancelled</source>
        <translation>%1 abgebrochen</translation>
    </message>
    <message>
        <source>Cancelled: %1. Deploy again to go on.</source>
        <translation>Abgebrochen: %1. Verteilen Sie noch einmal, um fortzufahren.</translation>
    </message>
</context>
<context>
    <name>TDialogs</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Ja für &amp;alle</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>There is no such directory. Choose a file in one that exists.</source>
        <translation>Dieses Verzeichnis gibt es nicht. Wählen Sie eine Datei in einem vorhandenen.</translation>
    </message>
</context>
<context>
    <name>TDifferenceDialog</name>
    <message>
        <source>Theirs and Ours</source>
        <translation>Deren und unsere Fassung</translation>
    </message>
    <message>
        <source>− theirs: %1
+ ours: %2</source>
        <translation>− deren: %1
+ unsere: %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Lines that differ</source>
        <translation>Zeilen, die sich unterscheiden</translation>
    </message>
    <message>
        <source>The files are no text. Theirs has %1 bytes, ours %2.</source>
        <translation>Die Dateien sind kein Text. Deren hat %1 Bytes, unsere %2.</translation>
    </message>
    <message>
        <source>The lines are the same.</source>
        <translation>Die Zeilen sind gleich.</translation>
    </message>
    <message>
        <source>There are more.</source>
        <translation>Es gibt weitere.</translation>
    </message>
</context>
<context>
    <name>TProjectEdits</name>
    <message>
        <source>Recovered Edits</source>
        <translation>Wiederhergestellte Änderungen</translation>
    </message>
    <message>
        <source>Reconcile for %1</source>
        <translation>Abgleich für %1</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Tick %1</source>
        <translation>%1 auswählen</translation>
    </message>
    <message>
        <source>Untick %1</source>
        <translation>%1 abwählen</translation>
    </message>
    <message>
        <source>Remote Path of %1</source>
        <translation>Zielpfad von %1</translation>
    </message>
    <message>
        <source>Remote Name of %1</source>
        <translation>Zielname von %1</translation>
    </message>
    <message>
        <source>Overwrite of %1</source>
        <translation>Überschreiben von %1</translation>
    </message>
    <message>
        <source>Platforms of %1</source>
        <translation>Plattformen von %1</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>%1 bearbeiten</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>TRowWords</name>
    <message>
        <source>copy over theirs</source>
        <translation>deren überschreiben</translation>
    </message>
    <message>
        <source>keep theirs</source>
        <translation>deren behalten</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>entfernen</translation>
    </message>
    <message>
        <source>leave there</source>
        <translation>dort lassen</translation>
    </message>
    <message>
        <source>leave out</source>
        <translation>auslassen</translation>
    </message>
    <message>
        <source>conflict: choose</source>
        <translation>Konflikt: wählen</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>nicht angerührt</translation>
    </message>
    <message>
        <source>cannot be copied</source>
        <translation>nicht kopierbar</translation>
    </message>
    <message>
        <source>copy</source>
        <translation>kopieren</translation>
    </message>
    <message>
        <source>set rights</source>
        <translation>Rechte setzen</translation>
    </message>
    <message>
        <source>keep</source>
        <translation>behalten</translation>
    </message>
    <message>
        <source>skip</source>
        <translation>überspringen</translation>
    </message>
    <message>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>wartet</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>Conflicts</source>
        <translation>Konflikte</translation>
    </message>
    <message>
        <source>Left alone</source>
        <translation>Nicht angerührt</translation>
    </message>
    <message>
        <source>Cannot be copied</source>
        <translation>Nicht kopierbar</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>To copy</source>
        <translation>Zu kopieren</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Rights alone</source>
        <translation>Nur Rechte</translation>
    </message>
    <message>
        <source>To remove</source>
        <translation>Zu entfernen</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Entfernt</translation>
    </message>
    <message>
        <source>Not in the list any more</source>
        <translation>Nicht mehr in der Liste</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Same</source>
        <translation>Gleich</translation>
    </message>
    <message>
        <source>failed; left out next time</source>
        <translation>fehlgeschlagen; nächstes Mal ausgelassen</translation>
    </message>
</context>
<context>
    <name>TTargetsComboBox</name>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Target: platform and configuration</source>
        <translation>Ziel: Plattform und Konfiguration</translation>
    </message>
    <message>
        <source>All Platforms</source>
        <translation>Alle Plattformen</translation>
    </message>
</context>
<context>
    <name>TToolBar</name>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
</context>
<context>
    <name>TUndoWords</name>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>No connection: %1.</source>
        <translation>Keine Verbindung: %1.</translation>
    </message>
    <message>
        <source>Nothing was taken back: %1.</source>
        <translation>Es wurde nichts zurückgenommen: %1.</translation>
    </message>
    <message>
        <source>Cancelled: %1 restored, %2 removed.</source>
        <translation>Abgebrochen: %1 wiederhergestellt, %2 entfernt.</translation>
    </message>
    <message>
        <source>Taken back: %1 restored, %2 removed.</source>
        <translation>Zurückgenommen: %1 wiederhergestellt, %2 entfernt.</translation>
    </message>
    <message>
        <source>Left as they are: %1.</source>
        <translation>Belassen: %1.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows which files of a project go to which platform, and brings them there.</source>
        <translation>Zeigt, welche Dateien eines Projekts auf welche Plattform gehen, und bringt sie dorthin.</translation>
    </message>
    <message>
        <source>Root directory with ObjRepos/Deploy</source>
        <translation>Wurzelverzeichnis mit ObjRepos/Deploy</translation>
    </message>
    <message>
        <source>Configuration to show</source>
        <translation>Konfiguration, die gezeigt wird</translation>
    </message>
    <message>
        <source>Platform to show, or &quot;all&quot;</source>
        <translation>Plattform, die gezeigt wird, oder „all“</translation>
    </message>
    <message>
        <source>Draw the window into a PNG file and end</source>
        <translation>Das Fenster in eine PNG-Datei zeichnen und enden</translation>
    </message>
    <message>
        <source>Size of the window, such as 1200x700</source>
        <translation>Größe des Fensters, etwa 1200x700</translation>
    </message>
    <message>
        <source>Light text on dark</source>
        <translation>Heller Text auf dunklem Grund</translation>
    </message>
    <message>
        <source>Dark text on light</source>
        <translation>Dunkler Text auf hellem Grund</translation>
    </message>
    <message>
        <source>Project files to open</source>
        <translation>Projektdateien, die geöffnet werden</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no size</source>
        <translation>„%1“ ist keine Größe</translation>
    </message>
    <message>
        <source>%1 cannot be written</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>workbench::TConnectionQuestions</name>
    <message>
        <source>Unknown Machine</source>
        <translation>Unbekannter Rechner</translation>
    </message>
    <message>
        <source>The key of %1 is not known yet.</source>
        <translation>Der Schlüssel von %1 ist noch nicht bekannt.</translation>
    </message>
    <message>
        <source>Its type is %1, its fingerprint is

%2

Accept it only when the machine&apos;s owner names the same fingerprint. It is kept for later connections.</source>
        <translation>Sein Typ ist %1, sein Fingerabdruck ist

%2

Nehmen Sie ihn nur an, wenn der Besitzer des Rechners denselben Fingerabdruck nennt. Er wird für spätere Verbindungen behalten.</translation>
    </message>
    <message>
        <source>&amp;Accept</source>
        <translation>&amp;Annehmen</translation>
    </message>
    <message>
        <source>&amp;Refuse</source>
        <translation>A&amp;blehnen</translation>
    </message>
    <message>
        <source>Log In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>workbench::TConsentsPage</name>
    <message>
        <source>&amp;Forget</source>
        <translation>&amp;Vergessen</translation>
    </message>
    <message>
        <source>These &amp;commands run, and these files from beyond a project&apos;s directory are sent, without a question when their project is deployed:</source>
        <translation>Diese &amp;Befehle laufen und diese Dateien von außerhalb eines Projektverzeichnisses werden gesendet, ohne Rückfrage, wenn ihr Projekt verteilt wird:</translation>
    </message>
    <message>
        <source>Projects with their commands and files</source>
        <translation>Projekte mit ihren Befehlen und Dateien</translation>
    </message>
    <message>
        <source>Consents</source>
        <translation>Zustimmungen</translation>
    </message>
</context>
<context>
    <name>workbench::TDeployPage</name>
    <message>
        <source>What is deployed where to</source>
        <translation>Was wohin verteilt wird</translation>
    </message>
    <message>
        <source>State of the deploy</source>
        <translation>Stand der Verteilung</translation>
    </message>
    <message>
        <source>Output of the commands</source>
        <translation>Ausgabe der Befehle</translation>
    </message>
    <message>
        <source>Deploying…</source>
        <translation>Verteile…</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>Which rows are shown</source>
        <translation>Welche Zeilen gezeigt werden</translation>
    </message>
    <message>
        <source>Take &amp;Ours</source>
        <translation>&amp;Unsere nehmen</translation>
    </message>
    <message>
        <source>&amp;Keep Theirs</source>
        <translation>&amp;Deren behalten</translation>
    </message>
    <message>
        <source>&amp;Go to Entry</source>
        <translation>Zum &amp;Eintrag</translation>
    </message>
    <message>
        <source>Ret&amp;ry</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Files of the deploy</source>
        <translation>Dateien der Verteilung</translation>
    </message>
    <message>
        <source>Copy as &amp;Text</source>
        <translation>Als &amp;Text kopieren</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Deploy</source>
        <translation>&amp;Verteilen</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>%1 for %2 – %3</source>
        <translation>%1 für %2 – %3</translation>
    </message>
    <message>
        <source>Comparing with the target…</source>
        <translation>Vergleiche mit dem Zielgerät…</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>Breche ab…</translation>
    </message>
    <message>
        <source>All (%1)</source>
        <translation>Alle (%1)</translation>
    </message>
    <message>
        <source>Files changed since this plan was looked at. Nothing was copied.</source>
        <translation>Dateien haben sich geändert, seit dieser Plan angesehen wurde. Es wurde nichts kopiert.</translation>
    </message>
    <message>
        <source>Changed by others on the target: %1 without a choice, which will be left alone.</source>
        <translation>Von anderen auf dem Zielgerät geändert: %1 ohne Entscheidung; sie werden nicht angerührt.</translation>
    </message>
    <message>
        <source>There is nothing to copy.</source>
        <translation>Es gibt nichts zu kopieren.</translation>
    </message>
    <message>
        <source>To copy: %1 (%2).</source>
        <translation>Zu kopieren: %1 (%2).</translation>
    </message>
    <message>
        <source>To remove: %1.</source>
        <translation>Zu entfernen: %1.</translation>
    </message>
    <message>
        <source>Left out: %1.</source>
        <translation>Ausgelassen: %1.</translation>
    </message>
    <message>
        <source>The same: %1.</source>
        <translation>Gleich: %1.</translation>
    </message>
    <message>
        <source>Commands that run: %1.</source>
        <translation>Befehle, die laufen: %1.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Failed File</source>
        <translation>Fehlgeschlagene Datei</translation>
    </message>
    <message>
        <source>%1 was not deployed: %2</source>
        <translation>%1 wurde nicht verteilt: %2</translation>
    </message>
    <message>
        <source>It belongs to %1.

%2</source>
        <translation>Sie gehört nach %1.

%2</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Show Di&amp;fference…</source>
        <translation>Unter&amp;schied zeigen…</translation>
    </message>
    <message>
        <source>S&amp;kip</source>
        <translation>Ü&amp;berspringen</translation>
    </message>
    <message>
        <source>&amp;New Profile…</source>
        <translation>&amp;Neues Profil…</translation>
    </message>
    <message>
        <source>Remote &amp;Profiles…</source>
        <translation>&amp;Profile…</translation>
    </message>
    <message>
        <source>The target changed since this plan was made. Deploy makes it anew.</source>
        <translation>Das Zielgerät hat sich geändert, seit dieser Plan entstand. Verteilen macht ihn neu.</translation>
    </message>
</context>
<context>
    <name>workbench::TDeployPanel</name>
    <message>
        <source>Deploy</source>
        <translation>Verteilen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Deploy and its history</source>
        <translation>Verteilung und ihr Verlauf</translation>
    </message>
</context>
<context>
    <name>workbench::TDeployRowsModel</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>On the target</source>
        <translation>Auf dem Zielgerät</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
</context>
<context>
    <name>workbench::TEditorTabs</name>
    <message>
        <source>Open projects</source>
        <translation>Offene Projekte</translation>
    </message>
</context>
<context>
    <name>workbench::TFeatureFileDialog</name>
    <message>
        <source>&amp;Show automatically when required</source>
        <translation>Bei Bedarf automatisch &amp;zeigen</translation>
    </message>
    <message>
        <source>Featured files</source>
        <translation>Zusätzliche Dateien</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>workbench::TFeatureTreeModel</name>
    <message>
        <source>the base directory</source>
        <translation>Grundverzeichnis</translation>
    </message>
    <message>
        <source>%1: to %2</source>
        <translation>%1: nach %2</translation>
    </message>
</context>
<context>
    <name>workbench::TFolderPage</name>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen…</translation>
    </message>
    <message>
        <source>Di&amp;rectory:</source>
        <translation>&amp;Verzeichnis:</translation>
    </message>
    <message>
        <source>Directory</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>Everything is put below this directory.</source>
        <translation>Alles kommt unter dieses Verzeichnis.</translation>
    </message>
    <message>
        <source>Choose the directory that the files are to go to.</source>
        <translation>Wählen Sie das Verzeichnis, in das die Dateien sollen.</translation>
    </message>
    <message>
        <source>Directory of the Profile</source>
        <translation>Verzeichnis des Profils</translation>
    </message>
</context>
<context>
    <name>workbench::TGeneralPage</name>
    <message>
        <source>Offer &amp;featured files when a file of the project needs them</source>
        <translation>&amp;Zusätzliche Dateien anbieten, wenn eine Datei des Projekts sie braucht</translation>
    </message>
    <message>
        <source>Featured files that are meant for another product are not offered.</source>
        <translation>Zusätzliche Dateien für ein anderes Produkt werden nicht angeboten.</translation>
    </message>
    <message>
        <source>as the system</source>
        <translation>wie das System</translation>
    </message>
    <message>
        <source>Takes effect when the program is started again.</source>
        <translation>Gilt nach dem nächsten Start des Programms.</translation>
    </message>
    <message>
        <source>&amp;Product name:</source>
        <translation>&amp;Produktname:</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>&amp;Deploy without asking when nothing conflicts</source>
        <translation>&amp;Verteilen, ohne zu fragen, wenn nichts in Konflikt steht</translation>
    </message>
    <message>
        <source>Else the plan is shown first.</source>
        <translation>Sonst wird der Plan zuerst gezeigt.</translation>
    </message>
</context>
<context>
    <name>workbench::THistoryPage</name>
    <message>
        <source>State of the history</source>
        <translation>Stand des Verlaufs</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Deploys that the target remembers</source>
        <translation>Verteilungen, an die sich das Zielgerät erinnert</translation>
    </message>
    <message>
        <source>&amp;Take Back…</source>
        <translation>&amp;Zurücknehmen…</translation>
    </message>
    <message>
        <source>&amp;Read Again</source>
        <translation>&amp;Neu lesen</translation>
    </message>
    <message>
        <source>Deploys of %1 for %2 – %3</source>
        <translation>Verteilungen von %1 für %2 – %3</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Take back the deploy of %1 by %2?</source>
        <translation>Die Verteilung vom %1 von %2 zurücknehmen?</translation>
    </message>
    <message>
        <source>Take back the deploy of %1 by %2, and the newer ones, %3 in all?</source>
        <translation>Die Verteilung vom %1 von %2 und die neueren zurücknehmen, insgesamt %3?</translation>
    </message>
    <message>
        <source>What was replaced or removed comes back, and what was new goes. A file that somebody changed since stays as it is. Commands that ran are not taken back.</source>
        <translation>Was ersetzt oder entfernt wurde, kommt zurück; was neu war, verschwindet. Eine Datei, die seither jemand geändert hat, bleibt, wie sie ist. Befehle, die liefen, werden nicht zurückgenommen.</translation>
    </message>
    <message>
        <source>&amp;Take Back</source>
        <translation>&amp;Zurücknehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>Close &amp;Panel</source>
        <translation>Bereich &amp;schließen</translation>
    </message>
</context>
<context>
    <name>workbench::TMainWindow</name>
    <message>
        <source>Unsaved Edits</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Files of %1</source>
        <translation>Dateien von %1</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>A deploy is running; cancel it first.</source>
        <translation>Eine Verteilung läuft; brechen Sie sie zuerst ab.</translation>
    </message>
    <message>
        <source>Work is going on; it is over soon.</source>
        <translation>Es wird noch gearbeitet; gleich ist es vorbei.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Copy Rows</source>
        <translation>Zeilen &amp;kopieren</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>Remote &amp;Profiles…</source>
        <translation>&amp;Profile…</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Brings the files of a project to each of its platforms.</source>
        <translation>Bringt die Dateien eines Projekts auf jede seiner Plattformen.</translation>
    </message>
    <message>
        <source>Projects (%1)</source>
        <translation>Projekte (%1)</translation>
    </message>
    <message>
        <source>Projects and solutions (%1)</source>
        <translation>Projekte und Projektmappen (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Sa&amp;ve All</source>
        <translation>A&amp;lle speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>Projekt speichern unter</translation>
    </message>
    <message>
        <source>&amp;New…</source>
        <translation>&amp;Neu…</translation>
    </message>
    <message>
        <source>&amp;User Guide</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>Show P&amp;lan of Deploy</source>
        <translation>P&amp;lan der Verteilung zeigen</translation>
    </message>
    <message>
        <source>Show &amp;Results of Deploy</source>
        <translation>&amp;Ergebnisse der Verteilung zeigen</translation>
    </message>
    <message>
        <source>Deploy &amp;History</source>
        <translation>&amp;Verlauf der Verteilungen</translation>
    </message>
    <message>
        <source>No connection to the files of %1: %2</source>
        <translation>Keine Verbindung zu den Dateien von %1: %2</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Details</source>
        <translation>&amp;Einzelheiten</translation>
    </message>
    <message>
        <source>Compare &amp;Targets</source>
        <translation>&amp;Ziele vergleichen</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
</context>
<context>
    <name>workbench::TWindowMenus</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>&amp;Deployment</source>
        <translation>&amp;Verteilung</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
</context>
<context>
    <name>workbench::TWindowStatus</name>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n selected</source>
        <translation>
            <numerusform>, %n ausgewählt</numerusform>
            <numerusform>, %n ausgewählt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
</context>
<context>
    <name>workbench::TListCommands</name>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>The project has no remote profile for %1. Make one with Tools, Remote Profiles, and assign it to the project.</source>
        <translation>Das Projekt hat kein Profil für %1. Legen Sie unter Extras, Profile eines an und weisen Sie es dem Projekt zu.</translation>
    </message>
    <message>
        <source>The project names the remote profile %1 for %2, and there is none of that name. Make it with Tools, Remote Profiles, or assign another one to the project.</source>
        <translation>Das Projekt nennt für %2 das Profil %1, das es nicht gibt. Legen Sie es unter Extras, Profile an, oder weisen Sie dem Projekt ein anderes zu.</translation>
    </message>
</context>
<context>
    <name>workbench::TOptionsButton</name>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>How the deploy decides</source>
        <translation>Wie die Verteilung entscheidet</translation>
    </message>
    <message>
        <source>Compare by &amp;Content</source>
        <translation>Nach &amp;Inhalt vergleichen</translation>
    </message>
    <message>
        <source>Size and time are not trusted.</source>
        <translation>Größe und Zeit wird nicht getraut.</translation>
    </message>
    <message>
        <source>Copy Also What Is the &amp;Same</source>
        <translation>Auch &amp;Gleiches kopieren</translation>
    </message>
    <message>
        <source>What others changed on the target is not overwritten by that.</source>
        <translation>Was andere auf dem Zielgerät geändert haben, wird dadurch nicht überschrieben.</translation>
    </message>
    <message>
        <source>Skip &amp;Missing Files</source>
        <translation>&amp;Fehlende Dateien überspringen</translation>
    </message>
    <message>
        <source>Unless they are required.</source>
        <translation>Sofern sie nicht erforderlich sind.</translation>
    </message>
    <message>
        <source>&amp;Remove What Is Not in the List Any More</source>
        <translation>&amp;Entfernen, was nicht mehr in der Liste steht</translation>
    </message>
    <message>
        <source>Files that were deployed earlier and that nobody changed since.</source>
        <translation>Früher verteilte Dateien, die seither niemand geändert hat.</translation>
    </message>
    <message>
        <source>Send Files from &amp;Beyond the Project without a Question</source>
        <translation>Dateien von &amp;außerhalb des Projekts ohne Frage senden</translation>
    </message>
</context>
<context>
    <name>workbench::TPathModel</name>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>Library path</source>
        <translation>Bibliothekspfad</translation>
    </message>
    <message>
        <source>Tool chain path</source>
        <translation>Werkzeugpfad</translation>
    </message>
</context>
<context>
    <name>workbench::TPathsPage</name>
    <message>
        <source>Paths of the platforms</source>
        <translation>Pfade der Plattformen</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen…</translation>
    </message>
    <message>
        <source>Several &amp;directories are separated by &quot;;&quot;.</source>
        <translation>Mehrere &amp;Verzeichnisse werden durch „;“ getrennt.</translation>
    </message>
    <message>
        <source>Tool chain of &amp;OS X:</source>
        <translation>Werkzeuge für &amp;OS X:</translation>
    </message>
    <message>
        <source>Library paths</source>
        <translation>Bibliothekspfade</translation>
    </message>
    <message>
        <source>Tool Chain of OS X</source>
        <translation>Werkzeuge für OS X</translation>
    </message>
</context>
<context>
    <name>workbench::TProfileEditDialog</name>
    <message>
        <source>&amp;Default profile of the platform</source>
        <translation>&amp;Standardprofil der Plattform</translation>
    </message>
    <message>
        <source>&amp;Allow directories beyond the profile&apos;s</source>
        <translation>Ver&amp;zeichnisse außerhalb dessen des Profils erlauben</translation>
    </message>
    <message>
        <source>New Profile</source>
        <translation>Neues Profil</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Platform:</source>
        <translation>&amp;Plattform:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Art:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Enter a name for the profile.</source>
        <translation>Geben Sie einen Namen für das Profil ein.</translation>
    </message>
</context>
<context>
    <name>workbench::TProfileManagerDialog</name>
    <message>
        <source>Remote Profiles</source>
        <translation>Profile der Zielgeräte</translation>
    </message>
    <message>
        <source>There is no profile yet. Add one to say where the files of a platform go.</source>
        <translation>Es gibt noch kein Profil. Fügen Sie eines hinzu, um zu sagen, wohin die Dateien einer Plattform gehen.</translation>
    </message>
    <message>
        <source>Remote profiles</source>
        <translation>Profile der Zielgeräte</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Hinzufügen…</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten…</translation>
    </message>
    <message>
        <source>D&amp;uplicate…</source>
        <translation>&amp;Duplizieren…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Make &amp;Default</source>
        <translation>Zum &amp;Standard machen</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <translation>&amp;Testen</translation>
    </message>
    <message>
        <source>A&amp;ssign to Project</source>
        <translation>Dem &amp;Projekt zuweisen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>No Longer &amp;Default</source>
        <translation>Nicht mehr &amp;Standard</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt offen.</translation>
    </message>
    <message>
        <source>The project is not set up for the platform %1.</source>
        <translation>Das Projekt ist nicht für die Plattform %1 eingerichtet.</translation>
    </message>
    <message>
        <source>%1 copy</source>
        <translation>%1 Kopie</translation>
    </message>
    <message>
        <source>Remove Profile</source>
        <translation>Profil entfernen</translation>
    </message>
    <message>
        <source>Remove the profile %1? What is on the target stays there.</source>
        <translation>Das Profil %1 entfernen? Was auf dem Zielgerät ist, bleibt dort.</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Connecting to %1…</source>
        <translation>Verbinde mit %1…</translation>
    </message>
    <message>
        <source>%1: the connection works.</source>
        <translation>%1: Die Verbindung steht.</translation>
    </message>
    <message>
        <source>%1: no connection: %2</source>
        <translation>%1: keine Verbindung: %2</translation>
    </message>
    <message>
        <source>The dialog closes when the test has ended.</source>
        <translation>Der Dialog schließt, sobald der Test beendet ist.</translation>
    </message>
    <message>
        <source>%1 is the project&apos;s profile for %2 now.</source>
        <translation>%1 ist jetzt das Profil des Projekts für %2.</translation>
    </message>
    <message>
        <source>The project needs a profile for %1.</source>
        <translation>Das Projekt braucht ein Profil für %1.</translation>
    </message>
</context>
<context>
    <name>workbench::TProfileModel</name>
    <message>
        <source>Folder</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>SSH</source>
        <translation>SSH</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
</context>
<context>
    <name>workbench::TProjectTabs</name>
    <message>
        <source>Open Solution</source>
        <translation>Projektmappe öffnen</translation>
    </message>
    <message>
        <source>Not every project of %1 can be opened.

%2</source>
        <translation>Nicht jedes Projekt von %1 kann geöffnet werden.

%2</translation>
    </message>
    <message>
        <source>No project of %1 has something to deploy.</source>
        <translation>Kein Projekt von %1 hat etwas auszuliefern.</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>%1 cannot be opened.

%2</source>
        <translation>%1 kann nicht geöffnet werden.

%2</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was read here.</source>
        <translation>%1 wurde von einem anderen Programm geändert, seit es hier gelesen wurde.</translation>
    </message>
    <message>
        <source>Saving replaces what the other program wrote. A copy of it is kept beside the other backups.</source>
        <translation>Speichern ersetzt, was das andere Programm geschrieben hat. Eine Kopie davon kommt zu den übrigen Sicherungen.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>&amp;Überschreiben</translation>
    </message>
    <message>
        <source>%1

Nothing is lost: the changes are still here. Mend what stands in the way, then save again.</source>
        <translation>%1

Nichts ist verloren: Die Änderungen sind noch hier. Räumen Sie aus dem Weg, was stört, und speichern Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>Close Project</source>
        <translation>Projekt schließen</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>Die Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reload Project</source>
        <translation>Projekt neu laden</translation>
    </message>
    <message>
        <source>The changes that were not saved are lost then.</source>
        <translation>Die ungespeicherten Änderungen gehen dann verloren.</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
    <message>
        <source>Read %1 again from disk?</source>
        <translation>%1 noch einmal von der Platte lesen?</translation>
    </message>
    <message>
        <source>%1 cannot be read any more and was closed. Mend the file, then open it again.

%2</source>
        <translation>%1 ist nicht mehr lesbar und wurde geschlossen. Bringen Sie die Datei in Ordnung und öffnen Sie sie wieder.

%2</translation>
    </message>
    <message>
        <source>Project File</source>
        <translation>Projektdatei</translation>
    </message>
    <message>
        <source>%1 is gone. Save writes it again; its content is still here.</source>
        <translation>%1 gibt es nicht mehr. Speichern schreibt die Datei wieder; ihr Inhalt ist noch hier.</translation>
    </message>
    <message>
        <source>%1 was changed by another program. Reload it?</source>
        <translation>%1 wurde von einem anderen Programm geändert. Neu laden?</translation>
    </message>
    <message>
        <source>Changes that were not saved can be done to what the file holds now.</source>
        <translation>Nicht gespeicherte Änderungen können auf den neuen Inhalt der Datei angewendet werden.</translation>
    </message>
    <message>
        <source>Reload and Keep My &amp;Edits</source>
        <translation>Neu laden und meine Änderungen &amp;behalten</translation>
    </message>
    <message>
        <source>%1 was changed by another program and read again.</source>
        <translation>%1 wurde von einem anderen Programm geändert und neu gelesen.</translation>
    </message>
    <message>
        <source>%1 was renamed to %2.</source>
        <translation>%1 wurde in %2 umbenannt.</translation>
    </message>
</context>
<context>
    <name>workbench::TRunProgress</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Files, bytes, rate and time left</source>
        <translation>Dateien, Bytes, Geschwindigkeit und Restzeit</translation>
    </message>
    <message>
        <source>%1 of %2 files, %3 of %4, %5/s</source>
        <translation>%1 von %2 Dateien, %3 von %4, %5/s</translation>
    </message>
    <message>
        <source>, %1 left</source>
        <translation>, noch %1</translation>
    </message>
</context>
<context>
    <name>workbench::TRunsModel</name>
    <message>
        <source>%1 on %2</source>
        <translation>%1 auf %2</translation>
    </message>
    <message>
        <source>taken back</source>
        <translation>zurückgenommen</translation>
    </message>
    <message>
        <source>done</source>
        <translation>fertig</translation>
    </message>
    <message>
        <source>partly</source>
        <translation>teilweise</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Entfernt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Revision</translation>
    </message>
</context>
<context>
    <name>workbench::TSdkEditDialog</name>
    <message>
        <source>&amp;Default kit of the platform</source>
        <translation>&amp;Standard der Plattform</translation>
    </message>
    <message>
        <source>New SDK</source>
        <translation>Neues SDK</translation>
    </message>
    <message>
        <source>SDK</source>
        <translation>SDK</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Platform:</source>
        <translation>&amp;Plattform:</translation>
    </message>
    <message>
        <source>ND&amp;K:</source>
        <translation>ND&amp;K:</translation>
    </message>
    <message>
        <source>Debugger &amp;server:</source>
        <translation>&amp;Debugger-Server:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Durchsuchen…</translation>
    </message>
    <message>
        <source>Directory</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Enter a name for the SDK.</source>
        <translation>Geben Sie einen Namen für das SDK ein.</translation>
    </message>
    <message>
        <source>There is an SDK of this name already. Enter another name.</source>
        <translation>Ein SDK dieses Namens gibt es schon. Geben Sie einen anderen Namen ein.</translation>
    </message>
</context>
<context>
    <name>workbench::TSdkModel</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>NDK</source>
        <translation>NDK</translation>
    </message>
    <message>
        <source>Debugger server</source>
        <translation>Debugger-Server</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
</context>
<context>
    <name>workbench::TSdkPage</name>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>SDKs</source>
        <translation>SDKs</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Hinzufügen…</translation>
    </message>
    <message>
        <source>No Longer &amp;Default</source>
        <translation>Nicht mehr &amp;Standard</translation>
    </message>
    <message>
        <source>Make &amp;Default</source>
        <translation>Zum &amp;Standard machen</translation>
    </message>
</context>
<context>
    <name>workbench::TSelectDialog</name>
    <message>
        <source>Platforms of the file</source>
        <translation>Plattformen der Datei</translation>
    </message>
</context>
<context>
    <name>workbench::TSettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Not every setting could be written:</source>
        <translation>Nicht jede Einstellung konnte geschrieben werden:</translation>
    </message>
</context>
<context>
    <name>workbench::TSshPage</name>
    <message>
        <source>as the SSH client is set up</source>
        <translation>wie im SSH-Client eingestellt</translation>
    </message>
    <message>
        <source>name, address or alias of the SSH client</source>
        <translation>Name, Adresse oder Alias des SSH-Clients</translation>
    </message>
    <message>
        <source>such as /opt/app or ~/app</source>
        <translation>etwa /opt/app oder ~/app</translation>
    </message>
    <message>
        <source>one KEY=VALUE in each line, such as ProxyJump=gateway</source>
        <translation>je Zeile ein SCHLÜSSEL=WERT, etwa ProxyJump=gateway</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen…</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Rechner:</translation>
    </message>
    <message>
        <source>P&amp;ort:</source>
        <translation>P&amp;ort:</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>Ben&amp;utzer:</translation>
    </message>
    <message>
        <source>Key &amp;file:</source>
        <translation>Sch&amp;lüsseldatei:</translation>
    </message>
    <message>
        <source>Key file</source>
        <translation>Schlüsseldatei</translation>
    </message>
    <message>
        <source>Remote di&amp;rectory:</source>
        <translation>&amp;Verzeichnis dort:</translation>
    </message>
    <message>
        <source>SSH op&amp;tions:</source>
        <translation>SSH-Op&amp;tionen:</translation>
    </message>
    <message>
        <source>Wait for the &amp;machine:</source>
        <translation>Auf den Rechner &amp;warten:</translation>
    </message>
    <message>
        <source>Ask whether it li&amp;ves every:</source>
        <translation>Leben&amp;szeichen alle:</translation>
    </message>
    <message>
        <source>Enter the name or the address of the machine as the host.</source>
        <translation>Geben Sie als Rechner dessen Namen oder Adresse ein.</translation>
    </message>
    <message>
        <source>Enter the directory on the machine that the files are to go to, such as ~/app.</source>
        <translation>Geben Sie das Verzeichnis auf dem Rechner ein, in das die Dateien sollen, etwa ~/app.</translation>
    </message>
    <message>
        <source>Key File</source>
        <translation>Schlüsseldatei</translation>
    </message>
</context>
<context>
    <name>workbench::TWelcomePage</name>
    <message>
        <source>Open a project to see which files go to which platform.
A project file can also be dropped here.</source>
        <translation>Öffnen Sie ein Projekt, um zu sehen, welche Dateien auf welche Plattform gehen.
Eine Projektdatei kann auch hierher gezogen werden.</translation>
    </message>
    <message>
        <source>&amp;Open Project…</source>
        <translation>Projekt ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;New Project…</source>
        <translation>&amp;Neues Projekt…</translation>
    </message>
    <message>
        <source>&amp;User Guide</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
</context>
<context>
    <name>workbench::TProjectNotices</name>
    <message numerus="yes">
        <source>%n added</source>
        <translation>
            <numerusform>%n hinzugefügt</numerusform>
            <numerusform>%n hinzugefügt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <translation>
            <numerusform>%n geändert</numerusform>
            <numerusform>%n geändert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed</source>
        <translation>
            <numerusform>%n entfernt</numerusform>
            <numerusform>%n entfernt</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>The file holds a list of an older version. It is shown as one of today&apos;s; the next save writes it so.</source>
        <translation>Die Datei enthält eine Liste einer älteren Version. Sie wird als heutige gezeigt; das nächste Speichern schreibt sie so.</translation>
    </message>
    <message>
        <source>Reconciled for %1: %2</source>
        <translation>Abgeglichen für %1: %2</translation>
    </message>
    <message>
        <source>Reconciled for %1</source>
        <translation>Abgeglichen für %1</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>Other steps were done since; undo them first.</source>
        <translation>Danach kamen weitere Schritte; machen Sie diese zuerst rückgängig.</translation>
    </message>
    <message>
        <source>Optional files of the installation fit this project: %1. They are left out unless you choose some.</source>
        <translation>Zu diesem Projekt passen optionale Dateien der Installation: %1. Sie bleiben weg, wenn Sie keine wählen.</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Wählen…</translation>
    </message>
    <message>
        <source>&amp;Not Now</source>
        <translation>&amp;Nicht jetzt</translation>
    </message>
    <message>
        <source>The file holds a list of an older version. It is shown as one of today's; the next save writes it so.</source>
        <translation>Die Datei enthält eine Liste einer älteren Fassung. Sie wird als heutige gezeigt; das nächste Speichern schreibt sie so.</translation>
    </message>
</context>
<context>
    <name>workbench::TNoticeStrip</name>
    <message>
        <source>Close the notice</source>
        <translation>Hinweis schließen</translation>
    </message>
</context>
<context>
    <name>workbench::TDifferenceDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Entfernt</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>For</source>
        <translation>Für</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
</context>
<context>
    <name>workbench::TMissingNotices</name>
    <message>
        <source>The project goes to %1 by the remote profile %2, which is not on this machine.</source>
        <translation>Das Projekt geht für %1 über das Remote-Profil %2, das es auf diesem Rechner nicht gibt.</translation>
    </message>
    <message>
        <source>Use the &amp;Folder %1</source>
        <translation>&amp;Ordner %1 nehmen</translation>
    </message>
    <message>
        <source>&amp;Make It…</source>
        <translation>&amp;Anlegen…</translation>
    </message>
    <message>
        <source>C&amp;hoose Another…</source>
        <translation>Anderes &amp;wählen…</translation>
    </message>
    <message>
        <source>%1, which a build of the project makes, is not there: build it first, or the deploy goes without it.</source>
        <translation>%1, das Ergebnis eines Builds, ist nicht da: Erstellen Sie es zuerst, sonst geht das Deployment ohne es.</translation>
    </message>
    <message>
        <source>&amp;Go to Row</source>
        <translation>&amp;Zur Zeile</translation>
    </message>
</context>
<context>
    <name>ExampleProjects</name>
    <message>
        <source>A library with its data for Windows, macOS and Android</source>
        <translation>Eine Bibliothek mit ihren Daten für Windows, macOS und Android</translation>
    </message>
    <message>
        <source>A program with artwork and optional files for six platforms</source>
        <translation>Ein Programm mit Bildern und optionalen Dateien für sechs Plattformen</translation>
    </message>
    <message>
        <source>A service for two kinds of Linux machine</source>
        <translation>Ein Dienst für zwei Arten von Linux-Rechnern</translation>
    </message>
</context>
<context>
    <name>workbench::TGuideDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>workbench::TNewProjectDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen…</translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation>Durchsuchen: %1</translation>
    </message>
    <message>
        <source>Project &amp;file</source>
        <translation>Projekt&amp;datei</translation>
    </message>
    <message>
        <source>&amp;Empty, for these platforms</source>
        <translation>&amp;Leer, für diese Plattformen</translation>
    </message>
    <message>
        <source>From the install rules of a &amp;build directory</source>
        <translation>Aus den Installationsregeln eines &amp;Build-Verzeichnisses</translation>
    </message>
    <message>
        <source>Platforms</source>
        <translation>Plattformen</translation>
    </message>
    <message>
        <source>&amp;Kind of program</source>
        <translation>&amp;Art des Programms</translation>
    </message>
    <message>
        <source>&amp;Platforms</source>
        <translation>&amp;Plattformen</translation>
    </message>
    <message>
        <source>&amp;Configurations</source>
        <translation>&amp;Konfigurationen</translation>
    </message>
    <message>
        <source>Build &amp;directory</source>
        <translation>Build-&amp;Verzeichnis</translation>
    </message>
    <message>
        <source>Of CMake or Meson; CMake may be run to tell what it installs.</source>
        <translation>Von CMake oder Meson; CMake wird vielleicht ausgeführt, damit es sagt, was es installiert.</translation>
    </message>
    <message>
        <source>It builds &amp;for</source>
        <translation>Es baut &amp;für</translation>
    </message>
    <message>
        <source>&amp;Make Project</source>
        <translation>Projekt &amp;anlegen</translation>
    </message>
    <message>
        <source>Projects (*.vproj)</source>
        <translation>Projekte (*.vproj)</translation>
    </message>
    <message>
        <source>Build Directory</source>
        <translation>Build-Verzeichnis</translation>
    </message>
    <message>
        <source>Name the file of the project, with its directory.</source>
        <translation>Nennen Sie die Datei des Projekts mit ihrem Verzeichnis.</translation>
    </message>
    <message>
        <source>The name of a project cannot hold &quot;\&quot;.</source>
        <translation>Der Name eines Projekts kann kein „\“ enthalten.</translation>
    </message>
    <message>
        <source>%1 exists already.</source>
        <translation>%1 gibt es schon.</translation>
    </message>
    <message>
        <source>There is no directory %1.</source>
        <translation>Es gibt kein Verzeichnis %1.</translation>
    </message>
    <message>
        <source>Name the build directory.</source>
        <translation>Nennen Sie das Build-Verzeichnis.</translation>
    </message>
    <message>
        <source>Tick a platform.</source>
        <translation>Wählen Sie eine Plattform aus.</translation>
    </message>
</context>
<context>
    <name>workbench::TWindowHistory</name>
    <message>
        <source>Choose a single platform: each has a history of its own.</source>
        <translation>Wählen Sie eine einzelne Plattform: jede hat ihren eigenen Verlauf.</translation>
    </message>
    <message>
        <source>The target keeps no record of deploys.</source>
        <translation>Das Zielgerät merkt sich keine Verteilungen.</translation>
    </message>
    <message>
        <source>Reading the record of the target…</source>
        <translation>Lese, was sich das Zielgerät gemerkt hat…</translation>
    </message>
    <message>
        <source>No connection to %1: %2</source>
        <translation>Keine Verbindung zu %1: %2</translation>
    </message>
    <message>
        <source>Taking back…</source>
        <translation>Nehme zurück…</translation>
    </message>
    <message>
        <source>The record on the target is of a newer version of this program.</source>
        <translation>Was sich das Zielgerät gemerkt hat, stammt von einer neueren Version dieses Programms.</translation>
    </message>
    <message>
        <source>The record on the target is damaged: %1.</source>
        <translation>Was sich das Zielgerät gemerkt hat, ist beschädigt: %1.</translation>
    </message>
    <message>
        <source>The target remembers no deploys of this project yet.</source>
        <translation>Das Zielgerät erinnert sich noch an keine Verteilung dieses Projekts.</translation>
    </message>
</context>
<context>
    <name>RowState</name>
    <message>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>to copy</source>
        <translation>zu kopieren</translation>
    </message>
    <message>
        <source>changed there</source>
        <translation>dort geändert</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>bleibt</translation>
    </message>
    <message>
        <source>missing here</source>
        <translation>hier fehlend</translation>
    </message>
    <message>
        <source>switched off</source>
        <translation>abgewählt</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>The target has this very file.</source>
        <translation>Das Ziel hat genau diese Datei.</translation>
    </message>
    <message>
        <source>The target has no such file or an older one: a deploy copies it.</source>
        <translation>Das Ziel hat keine solche Datei oder eine ältere: eine Verteilung kopiert sie.</translation>
    </message>
    <message>
        <source>The file on the target is newer than the one here.</source>
        <translation>Die Datei auf dem Ziel ist neuer als die hier.</translation>
    </message>
    <message>
        <source>The target has another file, and Overwrite is off: a deploy leaves it.</source>
        <translation>Das Ziel hat eine andere Datei, und Überschreiben ist aus: eine Verteilung lässt sie stehen.</translation>
    </message>
    <message>
        <source>There is no such file on this machine, so it cannot be deployed.</source>
        <translation>Auf diesem Rechner gibt es keine solche Datei, darum kann sie nicht verteilt werden.</translation>
    </message>
    <message>
        <source>The box is not ticked: a deploy leaves the file out.</source>
        <translation>Das Kästchen ist nicht angehakt: eine Verteilung lässt die Datei aus.</translation>
    </message>
    <message>
        <source>The target was not asked, or could not tell. Connect to learn the state.</source>
        <translation>Das Ziel wurde nicht gefragt oder wusste es nicht. Verbinden Sie sich, um den Stand zu erfahren.</translation>
    </message>
</context>
<context>
    <name>TTargetBar</name>
    <message>
        <source>answers of just now</source>
        <translation>Antworten von eben</translation>
    </message>
    <message numerus="yes">
        <source>answers %n minute(s) old</source>
        <translation>
            <numerusform>Antworten %n Minute alt</numerusform>
            <numerusform>Antworten %n Minuten alt</numerusform>
        </translation>
    </message>
    <message>
        <source>Connecting to %1 …</source>
        <translation>Verbindung mit %1 wird aufgenommen …</translation>
    </message>
    <message>
        <source>Connected since %1, %2</source>
        <translation>Verbunden seit %1, %2</translation>
    </message>
    <message>
        <source>Connection lost: %1</source>
        <translation>Verbindung verloren: %1</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
</context>
<context>
    <name>workbench::TTargetBar</name>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Profiles…</source>
        <translation>Profile …</translation>
    </message>
    <message>
        <source>Make a profile, or assign one to the project</source>
        <translation>Ein Profil anlegen oder dem Projekt eines zuweisen</translation>
    </message>
    <message>
        <source>All Platforms</source>
        <translation>Alle Plattformen</translation>
    </message>
    <message>
        <source>Profile %1: %2</source>
        <translation>Profil %1: %2</translation>
    </message>
    <message>
        <source>The profile %1 is not on this machine.</source>
        <translation>Das Profil %1 gibt es auf diesem Rechner nicht.</translation>
    </message>
    <message>
        <source>Choose one platform to see where its files go.</source>
        <translation>Wählen Sie eine Plattform, um zu sehen, wohin ihre Dateien gehen.</translation>
    </message>
    <message>
        <source>No profile says where the files go.</source>
        <translation>Kein Profil sagt, wohin die Dateien gehen.</translation>
    </message>
    <message>
        <source>The files are put together beside the program; no profile is needed.</source>
        <translation>Die Dateien werden neben dem Programm zusammengestellt; ein Profil ist nicht nötig.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Gives the attempt up</source>
        <translation>Gibt den Versuch auf</translation>
    </message>
    <message>
        <source>Lets the machine go (F8)</source>
        <translation>Trennt die Verbindung (F8)</translation>
    </message>
    <message>
        <source>Compares the files with those on the machine (F8)</source>
        <translation>Vergleicht die Dateien mit denen auf dem Rechner (F8)</translation>
    </message>
    <message>
        <source>There is no machine for all platforms at once: choose one platform.</source>
        <translation>Für alle Plattformen zugleich gibt es keinen Rechner: wählen Sie eine Plattform.</translation>
    </message>
    <message>
        <source>There is nowhere to connect to: the platform has no profile.</source>
        <translation>Es gibt kein Ziel für eine Verbindung: die Plattform hat kein Profil.</translation>
    </message>
    <message>
        <source>Files for this platform go to no machine.</source>
        <translation>Dateien dieser Plattform gehen auf keinen Rechner.</translation>
    </message>
</context>
<context>
    <name>workbench::TStateChips</name>
    <message>
        <source>States of the files</source>
        <translation>Stand der Dateien</translation>
    </message>
    <message>
        <source>Click to see these files alone, and again to see all.</source>
        <translation>Ein Klick zeigt nur diese Dateien, ein zweiter wieder alle.</translation>
    </message>
</context>
<context>
    <name>workbench::TRowList</name>
    <message>
        <source>(beside the project)</source>
        <translation>(neben dem Projekt)</translation>
    </message>
</context>
<context>
    <name>workbench::TFilterBar</name>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Keine Gruppen</translation>
    </message>
    <message>
        <source>By folder</source>
        <translation>Nach Ordner</translation>
    </message>
    <message>
        <source>By class</source>
        <translation>Nach Klasse</translation>
    </message>
    <message>
        <source>By state</source>
        <translation>Nach Stand</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter: words of paths, names, classes or states (Ctrl+F)</source>
        <translation>Filter: Wörter aus Pfad, Name, Klasse oder Stand (Strg+F)</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Choose the columns of the list</source>
        <translation>Spalten der Liste wählen</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n file(s)</source>
        <translation>
            <numerusform>%1 von %n Datei</numerusform>
            <numerusform>%1 von %n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>All classes</source>
        <translation>Alle Klassen</translation>
    </message>
</context>
<context>
    <name>TPlatformMatrix</name>
    <message>
        <source>copy</source>
        <translation>kopieren</translation>
    </message>
    <message>
        <source>copy, executable</source>
        <translation>kopieren, ausführbar</translation>
    </message>
    <message>
        <source>unpack</source>
        <translation>auspacken</translation>
    </message>
    <message>
        <source>run</source>
        <translation>ausführen</translation>
    </message>
    <message>
        <source>run and remove</source>
        <translation>ausführen und entfernen</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>entfernen</translation>
    </message>
    <message>
        <source>as the class says</source>
        <translation>wie die Klasse</translation>
    </message>
</context>
<context>
    <name>workbench::TPlatformMatrix</name>
    <message>
        <source>(different)</source>
        <translation>(verschieden)</translation>
    </message>
    <message>
        <source>%1
The entry leaves it open, so its class or the project says it.</source>
        <translation>%1
Der Eintrag lässt es offen; es gilt, was Klasse oder Projekt sagen.</translation>
    </message>
    <message>
        <source>Deployed</source>
        <translation>Verteilt</translation>
    </message>
    <message>
        <source>Directory</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Operation</source>
        <translation>Vorgang</translation>
    </message>
    <message>
        <source>Commands here</source>
        <translation>Befehle hier</translation>
    </message>
    <message>
        <source>Commands there</source>
        <translation>Befehle dort</translation>
    </message>
    <message>
        <source>%1 for %2</source>
        <translation>%1 für %2</translation>
    </message>
</context>
<context>
    <name>workbench::TDetailsPane</name>
    <message>
        <source>Compare &amp;contents</source>
        <translation>&amp;Inhalte vergleichen</translation>
    </message>
    <message>
        <source>&amp;Why is it here?</source>
        <translation>&amp;Warum steht sie hier?</translation>
    </message>
    <message>
        <source>&amp;Required</source>
        <translation>E&amp;rforderlich</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>What is known of the selected files</source>
        <translation>Was über die ausgewählten Dateien bekannt ist</translation>
    </message>
    <message>
        <source>What the selected files say about each platform</source>
        <translation>Was für die ausgewählten Dateien je Plattform gilt</translation>
    </message>
    <message>
        <source>no condition</source>
        <translation>keine Bedingung</translation>
    </message>
    <message>
        <source>Reads the file here and the one on the target, and the record of the last deploy</source>
        <translation>Liest die Datei hier und die auf dem Ziel sowie das Protokoll der letzten Verteilung</translation>
    </message>
    <message>
        <source>Goes through the rules of the target once more</source>
        <translation>Geht die Regeln des Ziels noch einmal durch</translation>
    </message>
    <message>
        <source>C&amp;ondition:</source>
        <translation>&amp;Bedingung:</translation>
    </message>
    <message>
        <source>(no profile)</source>
        <translation>(kein Profil)</translation>
    </message>
    <message>
        <source>Select files to see where they come from, where they go and why.</source>
        <translation>Wählen Sie Dateien aus, um zu sehen, woher sie kommen, wohin sie gehen und warum.</translation>
    </message>
    <message>
        <source>(different)</source>
        <translation>(verschieden)</translation>
    </message>
    <message>
        <source>Condition</source>
        <translation>Bedingung</translation>
    </message>
    <message>
        <source>Required</source>
        <translation>Erforderlich</translation>
    </message>
</context>
<context>
    <name>TDetails</name>
    <message>
        <source>no such file</source>
        <translation>keine solche Datei</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>%1, %2, content %3</source>
        <translation>%1, %2, Inhalt %3</translation>
    </message>
    <message>
        <source>Both contents are the same.</source>
        <translation>Beide Inhalte sind gleich.</translation>
    </message>
    <message>
        <source>The contents differ.</source>
        <translation>Die Inhalte sind verschieden.</translation>
    </message>
    <message>
        <source>Both were changed since the last deploy.</source>
        <translation>Beide wurden seit der letzten Verteilung geändert.</translation>
    </message>
    <message>
        <source>The one on the target was changed since the last deploy.</source>
        <translation>Die auf dem Ziel wurde seit der letzten Verteilung geändert.</translation>
    </message>
    <message>
        <source>The one here was changed since the last deploy.</source>
        <translation>Die hier wurde seit der letzten Verteilung geändert.</translation>
    </message>
    <message>
        <source>Here</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Deployed</source>
        <translation>Verteilt</translation>
    </message>
    <message>
        <source>no deploy remembers it</source>
        <translation>keine Verteilung kennt sie</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Local file</source>
        <translation>Lokale Datei</translation>
    </message>
    <message>
        <source>There is no such file now.</source>
        <translation>Es gibt sie zurzeit nicht.</translation>
    </message>
    <message>
        <source>Lands at</source>
        <translation>Kommt nach</translation>
    </message>
    <message>
        <source>Choose one platform to see it.</source>
        <translation>Wählen Sie eine Plattform, um es zu sehen.</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Why it is in the list</source>
        <translation>Warum sie in der Liste steht</translation>
    </message>
    <message>
        <source>(different)</source>
        <translation>(verschieden)</translation>
    </message>
    <message numerus="yes">
        <source>%n files are selected</source>
        <translation>
            <numerusform>%n Datei ist ausgewählt</numerusform>
            <numerusform>%n Dateien sind ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Select fewer of them to see and edit what they share.</source>
        <translation>Wählen Sie weniger aus, um zu sehen und zu ändern, was sie gemeinsam haben.</translation>
    </message>
    <message numerus="yes">
        <source>%n of them are missing here</source>
        <translation>
            <numerusform>%n davon fehlt hier</numerusform>
            <numerusform>%n davon fehlen hier</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>workbench::TTargetsModel</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>was not asked</source>
        <translation>wurde nicht gefragt</translation>
    </message>
    <message>
        <source>was stopped</source>
        <translation>wurde angehalten</translation>
    </message>
</context>
<context>
    <name>workbench::TTargetsTab</name>
    <message>
        <source>Targets</source>
        <translation>Ziele</translation>
    </message>
</context>
<context>
    <name>workbench::TTargetsPage</name>
    <message>
        <source>&amp;Compare</source>
        <translation>&amp;Vergleichen</translation>
    </message>
    <message>
        <source>Only what &amp;differs</source>
        <translation>Nur &amp;Unterschiede</translation>
    </message>
    <message>
        <source>Targets of %1, %2</source>
        <translation>Ziele für %1, %2</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>Group of profiles</source>
        <translation>Gruppe von Profilen</translation>
    </message>
    <message>
        <source>All profiles</source>
        <translation>Alle Profile</translation>
    </message>
    <message>
        <source>Files on each target</source>
        <translation>Dateien auf jedem Ziel</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>There is no profile for this platform. Make one with Tools, Remote Profiles.</source>
        <translation>Für diese Plattform gibt es kein Profil. Legen Sie eines an: Extras, Profile.</translation>
    </message>
    <message>
        <source>Asks every ticked target; nothing is copied</source>
        <translation>Fragt jedes angehakte Ziel; nichts wird kopiert</translation>
    </message>
    <message>
        <source>Tick the targets that are to be asked.</source>
        <translation>Haken Sie die Ziele an, die gefragt werden sollen.</translation>
    </message>
    <message>
        <source>Comparing…</source>
        <translation>Vergleich läuft …</translation>
    </message>
    <message>
        <source>State of the targets</source>
        <translation>Stand der Ziele</translation>
    </message>
    <message>
        <source>Targets</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <source>, as of %1</source>
        <translation>, Stand %1</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>A&amp;nhalten</translation>
    </message>
</context>
<context>
    <name>workbench::TDeploymentView</name>
    <message>
        <source>Deployment Manager</source>
        <translation>Deployment Manager</translation>
    </message>
    <message>
        <source>Deployment</source>
        <translation>Verteilung</translation>
    </message>
    <message>
        <source>Show &amp;List</source>
        <translation>&amp;Liste zeigen</translation>
    </message>
    <message>
        <source>&amp;Deploy</source>
        <translation>&amp;Verteilen</translation>
    </message>
    <message>
        <source>&amp;Reconcile</source>
        <translation>&amp;Abgleichen</translation>
    </message>
    <message>
        <source>&amp;Save List</source>
        <translation>Liste &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Undo in List</source>
        <translation>In der Liste &amp;rückgängig</translation>
    </message>
    <message>
        <source>R&amp;edo in List</source>
        <translation>In der Liste &amp;wiederholen</translation>
    </message>
    <message>
        <source>Remote &amp;Profiles…</source>
        <translation>&amp;Profile …</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Try &amp;Again</source>
        <translation>&amp;Noch einmal</translation>
    </message>
    <message>
        <source>The Deployment Manager cannot be started.

%1

This plug-in and the package &quot;deploymgr&quot; go together in one version.</source>
        <translation>Der Deployment Manager kann nicht gestartet werden.

%1

Dieses Plug-in und das Paket „deploymgr“ gehören in derselben Version zusammen.</translation>
    </message>
    <message>
        <source>Open a project to see which of its files go to which platform.</source>
        <translation>Öffnen Sie ein Projekt, um zu sehen, welche seiner Dateien auf welche Plattform gehen.</translation>
    </message>
    <message>
        <source>%1 is not open.</source>
        <translation>%1 ist nicht offen.</translation>
    </message>
    <message numerus="yes">
        <source>%n problem(s)</source>
        <translation>
            <numerusform>%n Problem</numerusform>
            <numerusform>%n Probleme</numerusform>
        </translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
</context>
<context>
    <name>workbench::TNewListPage</name>
    <message>
        <source>&amp;Make the List</source>
        <translation>&amp;Liste anlegen</translation>
    </message>
    <message>
        <source>Choose the build directory</source>
        <translation>Build-Verzeichnis wählen</translation>
    </message>
    <message>
        <source>&amp;Build directory:</source>
        <translation>&amp;Build-Verzeichnis:</translation>
    </message>
    <message>
        <source>&amp;Platform:</source>
        <translation>&amp;Plattform:</translation>
    </message>
    <message>
        <source>%1 has no deployment list yet. It can be made of what the install rules of its build (CMake or Meson) install; it is kept in %2.</source>
        <translation>%1 hat noch keine Verteilungsliste. Sie kann aus dem entstehen, was die Installationsregeln des Builds (CMake oder Meson) installieren; sie steht dann in %2.</translation>
    </message>
    <message>
        <source>Build Directory</source>
        <translation>Build-Verzeichnis</translation>
    </message>
</context>
<context>
    <name>workbench::TProjectLists</name>
    <message>
        <source>Deployment List</source>
        <translation>Verteilungsliste</translation>
    </message>
    <message>
        <source>The list was not made.

%1</source>
        <translation>Die Liste wurde nicht angelegt.

%1</translation>
    </message>
    <message>
        <source>Files of %1</source>
        <translation>Dateien von %1</translation>
    </message>
</context>
</TS>
