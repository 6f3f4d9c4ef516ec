# What a run keeps on the machine before it changes anything, so that it can be taken back.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import stat

from ansible.module_utils.deployment_names import InputError
from ansible.module_utils.deployment_record import (
    LARGEST_RECORD, kept_names_of, parse_undo_index, undo_index_bytes, undo_manifest_bytes)
from ansible.module_utils.deployment_tree import Interrupted, reason_of

MANIFEST = 'undo.json'
INDEX = 'index.json'


def _mark(size, time_ns):
    return {'size': size, 'time': max(time_ns // 1000000000, 0)}


def _kind_of(row):
    """How the file is taken back; nothing for one that stays, or cannot be kept."""
    if row.action == 'copied' and not row.there:
        return None if row.operation == 'runAndRemove' else 'remove'
    if row.action in ('copied', 'removed') and row.there:
        if stat.S_ISLNK(row.there.st_mode):
            return 'link' if row.link_there else None
        return 'restore' if stat.S_ISREG(row.there.st_mode) else None
    return 'touch' if row.action == 'mode' else None


class UndoStore:
    """The directory "undo" beside a record."""

    def __init__(self, tree, directory):
        self._tree = tree
        self.directory = directory + '/undo'

    def keep(self, plan, record, run, limits):
        """Keeps what the plan is about to replace or remove. The reason when that failed, and
        nothing is kept then."""
        if limits['runs'] <= 0:
            return ''
        manifest, kept, size = self._collect(plan, record, run)
        if not manifest['files']:
            return ''
        if size > limits['bytes']:
            return ('what it replaces has %d bytes, and no more than %d are kept'
                    % (size, limits['bytes']))
        place = self.directory + '/' + run['id']
        try:
            self._trim(limits['runs'] - 1, limits['bytes'] - size)
            self._tree.handle(place, make=True)
            self._tree.put_bytes(place, MANIFEST, undo_manifest_bytes(manifest))
            for row, name in kept:
                self._tree.keep(row.directory, row.name, place, name)
            # What is kept is complete before the index says that it is there.
            self._write_index([{'id': run['id'], 'bytes': size}] + self._index())
        except OSError as error:
            self._drop(place, [name for unused, name in kept])
            return reason_of(error)
        except Interrupted:
            self._drop(place, [name for unused, name in kept])
            return 'the run was interrupted'
        return ''

    def _collect(self, plan, record, run):
        manifest = {'run': run, 'files': [], 'directories': []}
        kept, size, new = [], 0, []
        for row in plan.rows:
            kind = _kind_of(row)
            if not kind:
                continue
            file = {'kind': kind, 'path': row.path, 'put': None}
            entry = row.entry
            if row.action != 'removed' and row.operation != 'runAndRemove':
                # A touched file keeps its time.
                time = row.there.st_mtime_ns if kind == 'touch' else entry['time']
                file['put'] = _mark(entry['size'], 0 if entry['link'] else time)
                file['putLink'] = entry['link']
            if kind != 'remove':
                file['before'] = _mark(row.there.st_size, row.there.st_mtime_ns)
                file['mode'] = stat.S_IMODE(row.there.st_mode) & 0o777
            if kind == 'link':
                file['link'] = row.link_there
            if kind == 'restore':
                file['kept'] = str(len(manifest['files']) + 1)
                kept.append((row, file['kept']))
                size += row.there.st_size
            if kind == 'remove':
                new.append(row.directory)
            file['recorded'] = record['files'].get(row.path)
            file['owed'] = record['owed'].get(row.path)
            manifest['files'].append(file)
        manifest['directories'] = self._missing(new)
        return manifest, kept, size

    def _missing(self, directories):
        """Those that are not there yet, up to the root."""
        known, missing, root = set(), [], self._tree.root
        for directory in directories:
            while len(directory) > len(root) and directory not in known:
                known.add(directory)
                path = directory[len(root) + 1:]
                if not self._tree.resolve(path).exists:
                    missing.append(path)
                directory = directory.rpartition('/')[0]
        return missing

    def _index(self):
        try:
            data = self._tree.read(self.directory, INDEX, LARGEST_RECORD)
        except OSError:
            data = None
        return parse_undo_index(data) if data else []

    def _write_index(self, runs):
        self._tree.put_bytes(self.directory, INDEX, undo_index_bytes(runs))

    def _trim(self, most_runs, most_bytes):
        """Removes the oldest runs until no more than so many are left, and so many bytes."""
        runs = self._index()
        left, total = 0, 0
        while left < len(runs) and left < most_runs:
            if runs[left]['bytes'] > most_bytes - total:
                break
            total += runs[left]['bytes']
            left += 1
        if left == len(runs):
            return
        self._write_index(runs[:left])
        for run in runs[left:]:
            place = self.directory + '/' + run['id']
            try:
                names = kept_names_of(self._tree.read(place, MANIFEST, LARGEST_RECORD) or b'')
            except (OSError, InputError):
                names = []
            self._drop(place, names)

    def _drop(self, place, names):
        # The manifest goes last: it names the others.
        for name in names + [MANIFEST]:
            try:
                self._tree.remove(place, name)
            except OSError:
                pass
        self._tree.remove_empty([place])
