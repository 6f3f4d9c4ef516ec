# Keeps the record of a machine up to date while a deploy runs.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import os
import threading
import time

from ansible.module_utils.deployment_lock import REFRESH_INTERVAL
from ansible.module_utils.deployment_names import record_directory_of
from ansible.module_utils.deployment_record import (
    LARGEST_RECORD, MOST_RUNS, empty_record, parse_record, record_bytes)
from ansible.module_utils.deployment_tree import Tree, reason_of

RECORD_NAME = 'record.json'
DAMAGED_NAME = 'record.damaged'
WRITE_INTERVAL = 2  # seconds


class RecordStore:
    """The place of one project's record."""

    def __init__(self, tree, root_name):
        self._tree = tree
        place = tree.resolve(record_directory_of(root_name))
        self.directory = place.path
        self.problem = place.problem
        if not self.problem and not place.inside:
            self.problem = '%s leads out of the root' % record_directory_of(root_name)

    def read(self):
        """What stands there: (state, record, problem), the state "none" where nothing does."""
        try:
            data = self._tree.read(self.directory, RECORD_NAME, LARGEST_RECORD)
        except FileNotFoundError:
            data = None
        except OSError as error:
            return 'damaged', empty_record(), reason_of(error)
        return parse_record(data) if data is not None else ('none', empty_record(), '')

    def set_aside(self):
        """Keeps a damaged record under another name."""
        handle = self._tree.handle(self.directory)
        os.rename(RECORD_NAME, DAMAGED_NAME, src_dir_fd=handle, dst_dir_fd=handle)


class Keeper:
    """Is told what a deploy does as it happens. In one that takes long the record is written every
    two seconds, and the lock refreshed."""

    def __init__(self, tree, store, lock, before, record, run):
        self._tree = tree
        self._directory = store.directory
        self._lock = lock
        self._before = before
        self._run = run
        self.record = record
        self._mutex = threading.Lock()
        self._over = threading.Event()
        self._thread = threading.Thread(target=self._work, daemon=True)
        self._thread.start()

    def _work(self):
        written = self._before
        refreshed = time.monotonic()
        tree = None
        while not self._over.wait(WRITE_INTERVAL):
            with self._mutex:
                now = self._current('partly') if self._has_changes() else self._before
            try:
                tree = tree or Tree(self._tree.root or '/')
                if now != written:
                    tree.put_bytes(self._directory, RECORD_NAME, record_bytes(now))
                    written = now
            except OSError:
                pass  # the end of the deploy will say so
            if time.monotonic() - refreshed >= REFRESH_INTERVAL:
                self._lock.refresh()
                refreshed = time.monotonic()
        if tree:
            tree.forget()

    def _has_changes(self):
        return self.record != self._before

    def _current(self, result):
        # Entries are replaced, never changed.
        record = dict(self.record, files=dict(self.record['files']),
                      owed=dict(self.record['owed']))
        run = dict(self._run, result=result)
        if run['copied'] + run['removed'] + run['failed'] > 0:
            record['runs'] = ([run] + record['runs'])[:MOST_RUNS]
        return record

    def begin(self):
        """Writes what files will owe before anything is done, so that it is not forgotten."""
        with self._mutex:
            if (self.record['owed'] == self._before['owed']
                    and self.record['owedAfterDeploy'] == self._before['owedAfterDeploy']):
                return
            now = self._current('partly')
        try:
            self._tree.put_bytes(self._directory, RECORD_NAME, record_bytes(now))
        except OSError:
            pass  # the end of the deploy will say so

    def put(self, path, file, was_copied):
        """The file was put in place, or found to be what it should be."""
        with self._mutex:
            known = self.record['files'].get(path)
            file['run'] = known['run'] if known else ''
            if was_copied:
                self._run['copied'] += 1
                file['run'] = self._run['id']
            self.record['files'][path] = file

    def find(self, path):
        """What the record says of a file; nothing when it does not know it."""
        with self._mutex:
            return self.record['files'].get(path)

    def forget(self, path, was_removed):
        """The file is not there any more."""
        with self._mutex:
            self._run['removed'] += 1 if was_removed else 0
            self.record['files'].pop(path, None)
            self.record['owed'].pop(path, None)

    def owe(self, path, steps):
        """These steps are to be done when the file is there; none: it owes nothing any more."""
        with self._mutex:
            if steps:
                self.record['owed'][path] = list(steps)
            else:
                self.record['owed'].pop(path, None)

    def owe_after_deploy(self, command):
        """This command is to be run when all files are in place; empty: none is any more."""
        with self._mutex:
            self.record['owedAfterDeploy'] = command

    def failed(self):
        """A row failed or was refused."""
        with self._mutex:
            self._run['failed'] += 1

    def stop(self):
        """Ends what runs beside the deploy."""
        self._over.set()
        self._thread.join()

    def end(self, interrupted):
        """Writes the record for the last time, when it is another one than before. The reason when
        that failed."""
        self.stop()
        run = self._run
        is_done = run['failed'] == 0 and not interrupted
        if run['copied'] + run['removed'] > 0 or self._has_changes():
            self.record = self._current('done' if is_done else 'partly')
        if not self._has_changes():
            return ''
        try:
            self._tree.put_bytes(self._directory, RECORD_NAME, record_bytes(self.record))
        except OSError as error:
            return reason_of(error)
        return ''
