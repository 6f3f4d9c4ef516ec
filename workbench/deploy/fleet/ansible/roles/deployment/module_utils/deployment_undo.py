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
        try:
            self._trim(limits['runs'] - 1, limits['bytes'] - size)
            self._fill(manifest, kept, size)
        except OSError as error:
            problem = reason_of(error)
        except Interrupted:
            problem = 'the run was interrupted'
        else:
            return ''
        self._remove_runs([run['id']])
        return problem

    def _fill(self, manifest, kept, size):
        """The index names the run first, so that whoever comes after a bad end can sweep it; it
        offers the run when what is kept is complete."""
        run = manifest['run']['id']
        place = self.directory + '/' + run
        self._tree.handle(self.directory, make=True)
        index = self._index()
        index['unfinished'].append(run)
        self._write_index(index)
        self._tree.handle(place, make=True)
        self._tree.put_bytes(place, MANIFEST, undo_manifest_bytes(manifest))
        for row, name in kept:
            self._tree.keep(row.directory, row.name, place, name)
        index['unfinished'].remove(run)
        index['runs'].insert(0, {'id': run, 'bytes': size})
        self._write_index(index)

    def sweep(self):
        """Removes what bad ends left of runs that were being kept or removed."""
        self._tree.remove_unfinished(self.directory)
        self._remove_runs(self._index()['unfinished'])

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
        return parse_undo_index(data or b'')

    def _write_index(self, index):
        self._tree.put_bytes(self.directory, INDEX, undo_index_bytes(index))

    def _trim(self, most_runs, most_bytes):
        """Removes the oldest runs until no more than so many are left, and so many bytes."""
        runs = self._index()['runs']
        left, total = 0, 0
        while left < len(runs) and left < most_runs:
            if runs[left]['bytes'] > most_bytes - total:
                break
            total += runs[left]['bytes']
            left += 1
        self._remove_runs([run['id'] for run in runs[left:]])

    def _remove_runs(self, gone):
        """Runs leave the index before their files go, and are named there until these are gone."""
        if not gone:
            return
        index = self._index()
        index['runs'] = [run for run in index['runs'] if run['id'] not in gone]
        index['unfinished'] += [run for run in gone if run not in index['unfinished']]
        try:
            self._write_index(index)
            for run in gone:
                self._drop(self.directory + '/' + run)
            index['unfinished'] = [run for run in index['unfinished'] if run not in gone]
            self._write_index(index)
        except OSError:
            pass  # the next run sweeps them

    def _drop(self, place):
        self._tree.remove_unfinished(place)
        try:
            names = kept_names_of(self._tree.read(place, MANIFEST, LARGEST_RECORD) or b'')
        except (OSError, InputError):
            names = []
        # The manifest goes last: it names the others.
        for name in names + [MANIFEST]:
            try:
                self._tree.remove(place, name)
            except OSError:
                pass
        self._tree.remove_empty([place])
