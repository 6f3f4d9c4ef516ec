# The files below the root of a machine. Directories are opened one after the other and links on the
# way are never followed, so that what is resolved once stays where it was.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import errno
import fcntl
import hashlib
import os
import stat
import time

from ansible.module_utils.deployment_names import (
    UNFINISHED_PREFIX, UNFINISHED_SUFFIX, is_unfinished, machine_mark)
from ansible.module_utils.deployment_unfinished import UnfinishedFile

BLOCK = 256 * 1024
MOST_OPEN = 100       # directories
OLD_LINK = 60         # seconds; a link that stands unfinished for longer was left behind
# What a file system does not keep: rights, and time stamps to the nanosecond.
POOR_FILE_SYSTEMS = {'vfat': 2000000000, 'msdos': 2000000000, 'exfat': 10000000,
                     'cifs': 100, 'smb3': 100}


class Interrupted(Exception):
    """The run is to end."""


def reason_of(error):
    """What the system says of an error."""
    return error.strerror or str(error)


def kind_of(mode):
    """What stands somewhere, for people."""
    for test, name in ((stat.S_ISDIR, 'a directory'), (stat.S_ISFIFO, 'a pipe'),
                       (stat.S_ISSOCK, 'a socket'), (stat.S_ISBLK, 'a device'),
                       (stat.S_ISCHR, 'a device'), (stat.S_ISLNK, 'a link')):
        if test(mode):
            return name
    return 'a file'


def _step_of(directory):
    """The smallest step between two times there, in nanoseconds, and whether rights are kept."""
    try:
        with open('/proc/self/mounts', encoding='utf-8', errors='surrogateescape') as stream:
            lines = [line.split() for line in stream]
    except OSError:
        return 1, True
    best = ('', '')
    for fields in lines:
        point = fields[1].replace('\\040', ' ') if len(fields) > 2 else ''
        inside = directory == point or directory.startswith(point.rstrip('/') + '/')
        if point and inside and len(point) >= len(best[0]):
            best = (point, fields[2])
    step = POOR_FILE_SYSTEMS.get(best[1])
    return (step or 1, step is None)


class Place:
    """A directory as it really is."""

    def __init__(self, path='', inside=True, exists=False, problem=''):
        self.path = path
        self.inside = inside
        self.exists = exists
        self.problem = problem


class Tree:
    """Everything below one directory."""

    def __init__(self, root, is_cancelled=lambda: False):
        """Raises OSError for a root that cannot be one."""
        self.root = self._real_root(root)
        self.is_cancelled = is_cancelled
        self.step, self.keeps_modes = _step_of(self._existing(self.root))
        self._open = {}
        self._name = '%s%s-%d-%s' % (UNFINISHED_PREFIX, machine_mark(), os.getpid(),
                                     os.urandom(4).hex())
        self._count = 0

    @staticmethod
    def _existing(path):
        while not os.path.lexists(path):
            path = os.path.dirname(path)
        return path

    def _real_root(self, root):
        if not root.startswith('/') or '\0' in root:
            raise OSError(errno.EINVAL, 'it is no full path')
        existing = self._existing(os.path.normpath(root))
        real = os.path.realpath(existing)
        if not stat.S_ISDIR(os.stat(real).st_mode):
            raise OSError(errno.ENOTDIR, '%s is no directory' % real)
        rest = os.path.relpath(os.path.normpath(root), existing)
        real = real if rest == '.' else os.path.join(real, rest)
        return '' if real == '/' else real

    def resolve(self, directory):
        """Follows the links of a directory below the root, as far as it exists."""
        wanted = self.root + '/' + directory if directory else self.root or '/'
        existing = wanted
        while True:
            try:
                os.lstat(existing)
                break
            except (FileNotFoundError, NotADirectoryError):
                existing = os.path.dirname(existing)
            except OSError as error:
                return Place(problem='%s cannot be followed: %s' % (existing, reason_of(error)))
        try:
            real = os.path.realpath(existing)
            mode = os.stat(real).st_mode
        except OSError as error:
            return Place(problem='%s cannot be followed: %s' % (existing, reason_of(error)))
        if not stat.S_ISDIR(mode):
            return Place(problem='%s is %s, not a directory' % (real, kind_of(mode)))
        exists = existing == wanted
        if not exists:
            real = real.rstrip('/') + '/' + os.path.relpath(wanted, existing)
        real = '' if real == '/' else real
        inside = real == self.root or real.startswith(self.root + '/')
        return Place(real, inside, exists)

    def relative(self, directory, name):
        """The path below the root of a file in a resolved directory; empty beyond the root."""
        path = directory + '/' + name
        return path[len(self.root) + 1:] if path.startswith(self.root + '/') else ''

    # Directories.

    def forget(self):
        """Closes what is open."""
        for handle in self._open.values():
            os.close(handle)
        self._open = {}

    def handle(self, directory, make=False):
        """A resolved directory, opened; `make` makes what is missing."""
        if directory in self._open:
            return self._open[directory]
        if len(self._open) >= MOST_OPEN:
            self.forget()
        flags = os.O_RDONLY | os.O_DIRECTORY | os.O_NOFOLLOW | os.O_CLOEXEC
        handle = os.open('/', flags)
        try:
            for part in [part for part in directory.split('/') if part]:
                above = handle
                try:
                    handle = self._enter(above, part, flags, make)
                finally:
                    os.close(above)
        except OSError as error:
            raise OSError(error.errno, 'opening its directory: ' + reason_of(error))
        self._open[directory] = handle
        return handle

    @staticmethod
    def _enter(above, part, flags, make):
        for attempt in (0, 1):
            try:
                return os.open(part, flags, dir_fd=above)
            except FileNotFoundError:
                if not make or attempt:
                    raise
                try:
                    os.mkdir(part, 0o777, dir_fd=above)
                except FileExistsError:
                    pass
            except PermissionError:
                # One that may not be listed can be used all the same.
                return os.open(part, flags | getattr(os, 'O_PATH', 0), dir_fd=above)
        return None

    def remove_empty(self, directories):
        """Removes those of the resolved directories in which nothing is, the deepest first."""
        for path in sorted(directories, key=len, reverse=True):
            above, name = path.rsplit('/', 1)
            try:
                os.rmdir(name, dir_fd=self.handle(above))
            except OSError:
                pass
        self.forget()

    # Files.

    def examine(self, directory, name):
        """The state of what stands there, links not followed; nothing when nothing does."""
        try:
            return os.stat(name, dir_fd=self.handle(directory), follow_symlinks=False)
        except FileNotFoundError:
            return None

    def open_file(self, directory, name):
        """A plain file, opened for reading; whoever put something else there is not waited for."""
        handle = os.open(name, os.O_RDONLY | os.O_NONBLOCK | os.O_NOFOLLOW | os.O_CLOEXEC,
                         dir_fd=self.handle(directory))
        mode = os.fstat(handle).st_mode
        if not stat.S_ISREG(mode):
            os.close(handle)
            raise OSError(errno.EINVAL, 'it is ' + kind_of(mode))
        return os.fdopen(handle, 'rb')

    def hash_of(self, directory, name):
        """SHA-256 of a plain file; a text that is none where it cannot be read."""
        digest = hashlib.sha256()
        try:
            with self.open_file(directory, name) as stream:
                for block in iter(lambda: stream.read(BLOCK), b''):
                    self.stop_when_cancelled()
                    digest.update(block)
        except OSError:
            return 'unreadable there'
        return digest.hexdigest()

    def read(self, directory, name, limit):
        """The bytes of a plain file; nothing when there is none. Raises OSError."""
        try:
            with self.open_file(directory, name) as stream:
                data = stream.read(limit + 1)
        except FileNotFoundError:
            return None
        if len(data) > limit:
            raise OSError(errno.EFBIG, 'it is larger than %d bytes' % limit)
        return data

    def stop_when_cancelled(self):
        """Raises Interrupted when the run is to end."""
        if self.is_cancelled():
            raise Interrupted()

    def next_name(self):
        """A name for a file that is not finished, which nobody else takes."""
        self._count += 1
        return '%s-%d-%s' % (self._name, self._count, UNFINISHED_SUFFIX)

    def put_bytes(self, directory, name, data, mode=0o644):
        """Puts a file with these bytes in place whole."""
        file = self.begin(directory)
        try:
            file.write(data)
            file.stamp(mode)
            file.complete()
            file.put_in_place(name)
        finally:
            file.close()
        os.fsync(self.handle(directory))

    def begin(self, directory):
        """A new unfinished file in a resolved directory."""
        return UnfinishedFile(self.handle(directory), self.next_name())

    def make_link(self, directory, name, text):
        """Puts a link in place, in the stead of a file or link of that name."""
        handle = self.handle(directory)
        unfinished = self.next_name()
        os.symlink(text, unfinished, dir_fd=handle)
        try:
            os.rename(unfinished, name, src_dir_fd=handle, dst_dir_fd=handle)
        except OSError:
            os.unlink(unfinished, dir_fd=handle)
            raise

    def read_link(self, directory, name):
        """What a link stores; empty where it cannot be read."""
        try:
            return os.readlink(name, dir_fd=self.handle(directory))
        except OSError:
            return ''

    def set_mode(self, directory, name, mode):
        """Gives a plain file its rights."""
        with self.open_file(directory, name) as stream:
            os.fchmod(stream.fileno(), mode)

    def remove(self, directory, name):
        """Removes a file, when it is there."""
        try:
            os.unlink(name, dir_fd=self.handle(directory))
        except FileNotFoundError:
            pass

    def keep(self, directory, name, to_directory, to_name):
        """Gives a plain file a second name: by hard link where that goes, else by a copy."""
        source, target = self.handle(directory), self.handle(to_directory)
        try:
            os.link(name, to_name, src_dir_fd=source, dst_dir_fd=target, follow_symlinks=False)
        except (FileNotFoundError, FileExistsError):
            raise
        except (OSError, NotImplementedError):
            self._copy(directory, name, target, to_name)

    def _copy(self, directory, name, target, to_name):
        with self.open_file(directory, name) as stream:
            status = os.fstat(stream.fileno())
            handle = os.open(to_name, os.O_WRONLY | os.O_CREAT | os.O_EXCL | os.O_NOFOLLOW
                             | os.O_CLOEXEC, 0o600, dir_fd=target)
            try:
                with os.fdopen(handle, 'wb') as copy:
                    for block in iter(lambda: stream.read(BLOCK), b''):
                        self.stop_when_cancelled()
                        copy.write(block)
                    copy.flush()
                    os.fchmod(copy.fileno(), stat.S_IMODE(status.st_mode))
                    os.utime(copy.fileno(), ns=(status.st_atime_ns, status.st_mtime_ns))
            except (OSError, Interrupted):
                os.unlink(to_name, dir_fd=target)
                raise

    def remove_unfinished(self, directory):
        """Removes what runs that ended badly left in a directory."""
        try:
            handle = self.handle(directory)
            names = os.listdir(handle if os.listdir in os.supports_fd else directory)
        except OSError:
            return
        for name in names:
            if is_unfinished(name) and self._is_left_behind(handle, name):
                try:
                    os.unlink(name, dir_fd=handle)
                except OSError:
                    pass

    @staticmethod
    def _is_left_behind(directory, name):
        try:
            status = os.stat(name, dir_fd=directory, follow_symlinks=False)
            if stat.S_ISLNK(status.st_mode):
                return time.time() - status.st_ctime > OLD_LINK
            file = os.open(name, os.O_RDONLY | os.O_NONBLOCK | os.O_NOFOLLOW | os.O_CLOEXEC,
                           dir_fd=directory)
        except OSError:
            return False
        try:
            fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
            return True
        except OSError:
            return False
        finally:
            os.close(file)
