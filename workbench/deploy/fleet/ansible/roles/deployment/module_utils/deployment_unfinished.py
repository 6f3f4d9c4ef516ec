# A file that is written under a name of its own until it is whole.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import errno
import fcntl
import os


class UnfinishedFile:
    """A file under a name of its own beside the final one. Removed unless it is put in place."""

    def __init__(self, directory, name):
        self._directory = os.dup(directory)
        self._name = name
        self._in_place = False
        self._file = -1
        try:
            self._file = os.open(name, os.O_WRONLY | os.O_CREAT | os.O_EXCL | os.O_NOFOLLOW
                                 | os.O_CLOEXEC, 0o600, dir_fd=self._directory)
        except OSError:
            os.close(self._directory)
            raise
        try:
            fcntl.flock(self._file, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except OSError:
            pass  # some shares have no locks

    def write(self, data):
        view = memoryview(data)
        while view:
            view = view[os.write(self._file, view):]

    def stamp(self, mode, time_ns=None):
        """Rights and, where it is told, the time stamp."""
        os.fchmod(self._file, mode)
        if time_ns is not None:
            os.utime(self._file, ns=(time_ns, time_ns))

    def complete(self):
        """Brings it to the disk."""
        try:
            os.fsync(self._file)
        except OSError as error:
            if error.errno not in (errno.EINVAL, errno.ENOSYS, errno.EOPNOTSUPP):
                raise

    def put_in_place(self, name):
        """Gives it its final name at once."""
        os.rename(self._name, name, src_dir_fd=self._directory, dst_dir_fd=self._directory)
        self._in_place = True

    def appear_as(self, name):
        """Gives it a second name that nothing has yet, for good. Raises FileExistsError."""
        os.link(self._name, name, src_dir_fd=self._directory, dst_dir_fd=self._directory)

    def close(self):
        """Ends with it; what is not in place goes."""
        if self._file < 0:
            return
        if not self._in_place:
            try:
                os.unlink(self._name, dir_fd=self._directory)
            except OSError:
                pass
        os.close(self._file)
        os.close(self._directory)
        self._file = -1
