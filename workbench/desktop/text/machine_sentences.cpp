// The sentences of the engine about files, commands and projects of this machine.
#include "workbench/desktop/text/engine_sentences.h"

#include <QtGlobal>
#include <array>

namespace workbench {
namespace {

constexpr std::array MachineTexts{
    // Files
    QT_TRANSLATE_NOOP("Engine", "examining the temporary file"),
    QT_TRANSLATE_NOOP("Engine", "the file has another %1 than before"),
    QT_TRANSLATE_NOOP("Engine", "owner and group"),
    QT_TRANSLATE_NOOP("Engine", "owner"),
    QT_TRANSLATE_NOOP("Engine", "the file's attribute \"%1\" was not kept"),
    QT_TRANSLATE_NOOP("Engine", "setting the rights of the temporary file"),
    QT_TRANSLATE_NOOP("Engine", "reading the old content"),
    QT_TRANSLATE_NOOP("Engine", "writing the copy"),
    QT_TRANSLATE_NOOP("Engine", "making the copy"),
    QT_TRANSLATE_NOOP("Engine", "bringing the copy to the disk"),
    QT_TRANSLATE_NOOP("Engine", "finding the user's state directory"),
    QT_TRANSLATE_NOOP("Engine", "finding a free name"),
    QT_TRANSLATE_NOOP("Engine", "%1 second"),
    QT_TRANSLATE_NOOP("Engine", "%1 seconds"),
    QT_TRANSLATE_NOOP("Engine", "%1 cannot be locked: %2; nothing was written"),
    QT_TRANSLATE_NOOP("Engine", "%1 is in use by another run; waited %2; nothing was written"),
    QT_TRANSLATE_NOOP("Engine", "the %1 cannot be read: %2"),
    QT_TRANSLATE_NOOP("Engine", "the path names %1, not %2"),
    QT_TRANSLATE_NOOP("Engine", "the %1 has %2 bytes; at most %3 are read"),
    QT_TRANSLATE_NOOP("Engine", "the %1 was changed by another program each time it was read"),
    QT_TRANSLATE_NOOP("Engine", "project file"),
    QT_TRANSLATE_NOOP("Engine", "a project file"),
    QT_TRANSLATE_NOOP("Engine", "following the symbolic link"),
    QT_TRANSLATE_NOOP("Engine", "%1 is %2; nothing was written"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "%1 was removed since it was read; nothing was written (--force-save writes it anew)"),
    QT_TRANSLATE_NOOP("Engine", "%1 exists already; nothing was written"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "%1 changed on disk since it was read; nothing was written (--force-save overwrites it)"),
    QT_TRANSLATE_NOOP("Engine", "locking the new content"),
    QT_TRANSLATE_NOOP("Engine", "the old content of %1 was not kept as a backup: %2"),
    QT_TRANSLATE_NOOP("Engine", "%1 has further names; they keep the old content"),
    QT_TRANSLATE_NOOP("Engine", "bringing its directory to the disk"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "%1 was written but may be lost if the machine stops now: %2; the new content is in place"),
    QT_TRANSLATE_NOOP("Engine", "%1 was not written: %2; the old content is in place"),
    QT_TRANSLATE_NOOP("Engine", "%1 was not written: %2; no file was made"),
    QT_TRANSLATE_NOOP("Engine", "no reason was given"),
    QT_TRANSLATE_NOOP("Engine", "there is no such file: the installation is not complete"),
    QT_TRANSLATE_NOOP("Engine", "the module cannot be loaded: %1"),
    QT_TRANSLATE_NOOP("Engine", "the module is of another version: %1"),
    QT_TRANSLATE_NOOP("Engine", "universal Mach-O"),
    QT_TRANSLATE_NOOP("Engine", "no program"),
    QT_TRANSLATE_NOOP("Engine", "making a private directory"),
    QT_TRANSLATE_NOOP("Engine", "writing the new content"),
    QT_TRANSLATE_NOOP("Engine", "reading the content on disk"),
    QT_TRANSLATE_NOOP("Engine", "examining the content on disk"),
    QT_TRANSLATE_NOOP("Engine", "bringing the new content to the disk"),
    QT_TRANSLATE_NOOP("Engine", "closing the temporary file"),
    QT_TRANSLATE_NOOP("Engine", "reading the new content back"),
    QT_TRANSLATE_NOOP("Engine", "comparing the new content with what reached the disk"),
    QT_TRANSLATE_NOOP("Engine", "putting the new content in place"),
    // Commands
    QT_TRANSLATE_NOOP("Engine", "making a pipe"),
    QT_TRANSLATE_NOOP("Engine", "setting up a pipe"),
    QT_TRANSLATE_NOOP("Engine", "starting %1"),
    QT_TRANSLATE_NOOP("Engine", "cannot be run: %1"),
    QT_TRANSLATE_NOOP("Engine", "was interrupted"),
    QT_TRANSLATE_NOOP("Engine", "was ended by signal %1"),
    QT_TRANSLATE_NOOP("Engine", "ended with status %1"),
    QT_TRANSLATE_NOOP("Engine", "no known shell"),
    QT_TRANSLATE_NOOP("Engine", "a POSIX shell"),
    // Services and sessions
    QT_TRANSLATE_NOOP("Engine", "There is no connection to %1: %2.\n\nSee that the machine runs "
                                "and can be reached from here, and that the profile is right: "
                                "Tools, Remote Profiles shows and tests it. Then connect again."),
    QT_TRANSLATE_NOOP("Engine", "the project was not saved: %1"),
    QT_TRANSLATE_NOOP("Engine", "the project is saved, but not its side file: %1"),
    QT_TRANSLATE_NOOP("Engine",
                      "the project is as it should be, but its side file is out of date: %1"),
    QT_TRANSLATE_NOOP("Engine", "the side file was out of date and was written anew"),
    QT_TRANSLATE_NOOP("Engine", "%1 (the last content that was replaced here is kept as %2)"),
    QT_TRANSLATE_NOOP("Engine", "a project of that name is open"),
    QT_TRANSLATE_NOOP("Engine", "the name of the project file is empty"),
    QT_TRANSLATE_NOOP("Engine", "not well-formed XML: %1"),
    QT_TRANSLATE_NOOP("Engine", "no element found"),
    QT_TRANSLATE_NOOP("Engine", "mismatched tag"),
    QT_TRANSLATE_NOOP("Engine", "not well-formed (invalid token)"),
    QT_TRANSLATE_NOOP("Engine", "unclosed token"),
    QT_TRANSLATE_NOOP("Engine", "junk after document element"),
    QT_TRANSLATE_NOOP("Engine", "the file is empty"),
    QT_TRANSLATE_NOOP("Engine", "the file holds nothing but zero bytes"),
    QT_TRANSLATE_NOOP("Engine", "the root element is \"%1\", so this is not an MSBuild project"),
    QT_TRANSLATE_NOOP("Engine", "the option \"%1\" is \"%2\", which is no Boolean (true or false)"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is a directory; \"--tree %2\" adds all its files"),
    QT_TRANSLATE_NOOP("Engine", "the directory \"%1\" cannot be read: %2"),
    QT_TRANSLATE_NOOP("Engine", "the directory \"%1\" has no file in it"),
    QT_TRANSLATE_NOOP("Engine", "there is no directory \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is a file, no directory"),
    QT_TRANSLATE_NOOP("Engine", "the recovery journal is in use by another run"),
    QT_TRANSLATE_NOOP("Engine", "the recovery journal cannot be understood: %1"),
    QT_TRANSLATE_NOOP("Engine", "unsaved edits of %1 would be lost if the program ended now: their "
                                "journal could not be written (%2)"),
    // The operating system
    QT_TRANSLATE_NOOP("Engine", "No such file or directory"),
    QT_TRANSLATE_NOOP("Engine", "Permission denied"),
    QT_TRANSLATE_NOOP("Engine", "Operation not permitted"),
    QT_TRANSLATE_NOOP("Engine", "No space left on device"),
    QT_TRANSLATE_NOOP("Engine", "Disk quota exceeded"),
    QT_TRANSLATE_NOOP("Engine", "Read-only file system"),
    QT_TRANSLATE_NOOP("Engine", "Is a directory"),
    QT_TRANSLATE_NOOP("Engine", "Not a directory"),
    QT_TRANSLATE_NOOP("Engine", "File exists"),
    QT_TRANSLATE_NOOP("Engine", "File name too long"),
    QT_TRANSLATE_NOOP("Engine", "File too large"),
    QT_TRANSLATE_NOOP("Engine", "Too many levels of symbolic links"),
    QT_TRANSLATE_NOOP("Engine", "Directory not empty"),
    QT_TRANSLATE_NOOP("Engine", "Text file busy"),
    QT_TRANSLATE_NOOP("Engine", "Device or resource busy"),
    QT_TRANSLATE_NOOP("Engine", "Too many open files"),
    QT_TRANSLATE_NOOP("Engine", "Input/output error"),
    QT_TRANSLATE_NOOP("Engine", "Invalid argument"),
    QT_TRANSLATE_NOOP("Engine", "Broken pipe"),
    QT_TRANSLATE_NOOP("Engine", "Connection refused"),
    QT_TRANSLATE_NOOP("Engine", "Connection reset by peer"),
    QT_TRANSLATE_NOOP("Engine", "Connection timed out"),
    QT_TRANSLATE_NOOP("Engine", "No route to host"),
    QT_TRANSLATE_NOOP("Engine", "Resource temporarily unavailable"),
    QT_TRANSLATE_NOOP("Engine", "Cannot allocate memory"),
    QT_TRANSLATE_NOOP("Engine", "Stale file handle"),
};

} // namespace

std::span<const char* const> MachineSentences() {
  return MachineTexts;
}

} // namespace workbench
