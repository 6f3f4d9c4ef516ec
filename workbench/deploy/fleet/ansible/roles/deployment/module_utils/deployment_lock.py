# Keeps two deploys of one project from one place at a time.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import errno
import os
import socket
import time

from ansible.module_utils.deployment_names import InputError, machine_mark
from ansible.module_utils.deployment_record import (
    json_bytes, number_in, parse_json, text_in, utc_text)

LOCK_NAME = 'lock'
LARGEST_LOCK = 4096
STALE_AGE = 60       # seconds without a sign of life
EMPTY_AGE = 5        # where it cannot appear whole, it says whose it is right after it is made
REFRESH_INTERVAL = 10
MOST_PROCESSES = 0x7fffffff
# Of the lock that allows to remove another one. So many ends in a row, each while a stale lock is taken
# over, leave names of this length, and no further ones are made.
TAKEOVER_SUFFIX = '-takeover'
LONGEST_NAME = len(LOCK_NAME) + 3 * len(TAKEOVER_SUFFIX)
ATTEMPTS = 10        # others may take it and give it back meanwhile
# What a file system says that gives no file a second name.
NO_SECOND_NAMES = (errno.EPERM, errno.EOPNOTSUPP, errno.ENOSYS, errno.EMLINK, errno.EINVAL)


class LockedError(Exception):
    """Somebody else has the lock; the text says who."""


def _holder_of(data):
    try:
        value = parse_json(data)
        holder = {name: text_in(value, name) for name in ('by', 'machine', 'since')}
        holder['machineMark'] = text_in(value, 'machineMark') if 'machineMark' in value else ''
        holder['process'] = number_in(value, 'process', 0, MOST_PROCESSES)
        return holder
    except InputError:
        return {'by': 'somebody', 'machine': 'a machine that it does not name', 'process': 0,
                'since': '', 'machineMark': ''}


def _is_gone(holder):
    if not holder['process'] or holder['machineMark'] != machine_mark():
        return False
    try:
        os.kill(holder['process'], 0)
    except ProcessLookupError:
        return True
    except (OSError, OverflowError):
        pass
    return _is_dead(holder['process'])


def _is_dead(process):
    """True for one that is in the table only because nobody asked for its end."""
    try:
        with open('/proc/%d/stat' % process, 'rb') as file:
            state = file.read().rpartition(b')')[2].split()[:1]
    except OSError:
        return False
    return state in ([b'Z'], [b'X'])


def _text(holder):
    text = '%s on %s' % (holder['by'], holder['machine'])
    if holder['process']:
        text += ' (process %d)' % holder['process']
    if holder['since']:
        text += ', since ' + holder['since']
    return ''.join(c if c.isprintable() else '?' for c in text)


class Lock:
    """The lock beside a record, whose directory is there when it is taken."""

    def __init__(self, tree, directory):
        self._tree = tree
        self._directory = directory
        self._handle = -1
        self._text = b''

    def check(self):
        """Raises LockedError when somebody who lives has it."""
        self._refuse(self._find(LOCK_NAME)[1])

    @staticmethod
    def _refuse(holder):
        if holder:
            raise LockedError('somebody else deploys there: ' + holder)

    def _find(self, name):
        """The bytes of a lock, nothing when it is not there, and who has it when they live."""
        try:
            status = self._tree.examine(self._directory, name)
            if status is None:
                return None, ''
            data = self._tree.read(self._directory, name, LARGEST_LOCK) or b''
        except FileNotFoundError:
            return None, ''
        except OSError:
            return b'', _text(_holder_of(b''))
        holder = _holder_of(data)
        age = time.time() - status.st_mtime
        if age > (STALE_AGE if data else EMPTY_AGE) or _is_gone(holder):
            return data, ''
        return data, _text(holder)

    def take(self, by, break_it):
        """Takes it. Raises LockedError, and OSError where no lock can be made. Of all who find one that
        is stale, one alone takes it over."""
        self._text = json_bytes({'by': by, 'machine': socket.gethostname(),
                                 'machineMark': machine_mark(), 'process': os.getpid(),
                                 'since': utc_text()}, None)
        self._take_name(LOCK_NAME, break_it)
        # A handle of its own: it is refreshed beside the work.
        self._handle = os.dup(self._tree.handle(self._directory))

    def _take_name(self, name, break_it):
        for attempt in range(ATTEMPTS):
            try:
                self._make(name)
                return
            except FileExistsError:
                data, holder = self._find(name)
                if not break_it:
                    self._refuse(holder)
                if attempt == ATTEMPTS - 1:
                    raise
                if data is not None:
                    self._remove_stale(name, break_it)

    def _remove_stale(self, name, break_it):
        """Two who find the same stale lock must not both remove it: the second would remove the one that
        the first has made since. Whoever removes one has a lock on that, which may go stale as well."""
        right = name + TAKEOVER_SUFFIX
        guarded = len(right) <= LONGEST_NAME
        if guarded:
            self._take_name(right, False)
        data, holder = self._find(name)
        if data is not None and (break_it or not holder):
            self._tree.remove(self._directory, name)
        if guarded:
            self._tree.remove(self._directory, right)

    def _make(self, name):
        directory = self._tree.handle(self._directory)
        file = self._tree.begin(self._directory)
        try:
            file.write(self._text)
            file.stamp(0o644)
            # It appears with all of its text, so that a run that is killed leaves none without.
            file.appear_as(name)
        except FileExistsError:
            raise
        except OSError as error:
            if error.errno not in NO_SECOND_NAMES:
                raise
            self._make_empty_first(directory, name, self._text)
        finally:
            file.close()

    @staticmethod
    def _make_empty_first(directory, name, text):
        handle = os.open(name, os.O_WRONLY | os.O_CREAT | os.O_EXCL | os.O_NOFOLLOW
                         | os.O_CLOEXEC, 0o644, dir_fd=directory)
        try:
            os.write(handle, text)
        except OSError:
            os.unlink(name, dir_fd=directory)
            raise
        finally:
            os.close(handle)

    def _is_ours(self):
        """False when it was taken over, as on a machine that slept."""
        try:
            file = os.open(LOCK_NAME, os.O_RDONLY | os.O_NONBLOCK | os.O_NOFOLLOW | os.O_CLOEXEC,
                           dir_fd=self._handle)
        except OSError:
            return False
        try:
            return os.read(file, LARGEST_LOCK) == self._text
        except OSError:
            return False
        finally:
            os.close(file)

    def refresh(self):
        """Says that the holder lives."""
        if self._handle >= 0 and self._is_ours():
            try:
                os.utime(LOCK_NAME, dir_fd=self._handle, follow_symlinks=False)
            except (OSError, NotImplementedError):
                pass

    def release(self):
        """Takes it back, when it is taken and is not somebody else's by now."""
        if self._handle < 0:
            return
        try:
            if self._is_ours():
                os.unlink(LOCK_NAME, dir_fd=self._handle)
        except OSError:
            pass
        os.close(self._handle)
        self._handle = -1
