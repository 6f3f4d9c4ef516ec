# One deploy on one machine, from the look at it to the answer.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import os

from ansible.module_utils.deployment_contents import (
    ContentError, Contents, differences, shown_contents)
from ansible.module_utils.deployment_keeper import Keeper, RecordStore
from ansible.module_utils.deployment_lock import Lock, LockedError
from ansible.module_utils.deployment_plan import Plan
from ansible.module_utils.deployment_record import MOST_TIME, empty_record, utc_text
from ansible.module_utils.deployment_steps import Steps, run_command
from ansible.module_utils.deployment_tree import Interrupted, Tree, reason_of
from ansible.module_utils.deployment_undo import UndoStore

INTERRUPTED = 'the run was interrupted'
MOST_WAITING = 128                   # files that are put in place at a time
MOST_BYTES_WAITING = 32 * 1024 * 1024
FAILED, UNEXPECTED, CANCELLED = 1, 8, 130  # as deploymgr ends


class Refused(Exception):
    """Nothing may be done on this machine."""

    def __init__(self, text, status=FAILED):
        super(Refused, self).__init__(text)
        self.status = status


class Deploy:
    """Used once. `wanted` is the list, `options` how it is brought here."""

    def __init__(self, root, wanted, options, contents=None, is_cancelled=lambda: False):
        self._wanted = wanted
        self._options = options
        self._contents = contents or Contents()
        self._is_cancelled = is_cancelled
        try:
            self._tree = Tree(root, is_cancelled)
        except OSError as error:
            raise Refused('%s cannot be the root of a deploy: %s' % (root, reason_of(error)))
        self._store = None
        self._lock = None
        self._keeper = None
        self._state, self.record = 'none', empty_record()
        self.plan = None
        self._done = set()
        self._changed_directories = set()
        self.after_deploy_problem = ''
        self.carried_out = False
        self.changed = False
        self.needed = []
        self.diff = []
        self.warnings = []
        self.output = []

    def run(self):
        """Does it. Raises Refused when nothing was done at all."""
        self._read_record()
        self.plan = Plan(self._tree, self._wanted, self.record, self._options)
        try:
            self.plan.make()
        except Interrupted:
            raise Refused('nothing was copied: ' + INTERRUPTED, CANCELLED)
        if self.plan.problems:
            raise Refused('nothing was copied: ' + '; '.join(self.plan.problems[:20]))
        self.warnings += self.plan.warnings
        if self._options['diff'] and not self._needs(shown_contents(self.plan)):
            self.diff = differences(self.plan, self._tree, self._contents)
        if self._options['check']:
            self.changed = bool(self.plan.commands()) or any(
                row.action in ('copied', 'removed', 'mode') for row in self.plan.rows)
            return
        if self._needs(self._contents_wanted()):
            return
        if self.plan.has_work() or self._state == 'damaged':
            try:
                self._execute()
            finally:
                if self._keeper:
                    self._keeper.stop()
                if self._lock:
                    self._lock.release()
        self.carried_out = True
        self._tree.forget()

    def is_cancelled(self):
        """True when the run was interrupted."""
        return self._is_cancelled()

    def _needs(self, names):
        missing = [name for name in names if name not in self._contents]
        self.needed = sorted(missing)
        return bool(missing)

    def _contents_wanted(self):
        wanted = set()
        for row in self.plan.rows:
            if row.action == 'copied' and not row.entry['link']:
                wanted.add(row.entry['sha256'])
            if 'unpack' in row.steps:
                wanted |= {member['sha256'] for member in row.entry['members']
                           if member['kind'] == 'file'}
        return wanted

    # The record.

    def _read_record(self):
        if self._wanted['stateless']:
            return
        self._store = RecordStore(self._tree, self._wanted['rootName'])
        if self._store.problem:
            self._forgets(self._store.problem)
            return
        self._lock = Lock(self._tree, self._store.directory)
        if not self._options['check'] and not self._options['break_lock']:
            try:
                self._lock.check()
            except LockedError as error:
                raise Refused('nothing was copied: %s' % error)
        self._state, self.record, problem = self._store.read()
        if self._state == 'newer':
            raise Refused('the record on the target is of a newer version of this program',
                          UNEXPECTED)
        if self._state == 'damaged':
            self.warnings.append('the record on the target is damaged and counts as none: '
                                 + problem)

    def _forgets(self, reason):
        self.warnings.append('the target cannot remember this deploy: ' + reason)
        self._store = self._lock = None

    def _take_lock(self):
        """The machine goes on without a record where it cannot have one."""
        try:
            self._tree.handle(self._store.directory, make=True)
            self._lock.take(self._options['by'], self._options['break_lock'])
            self._tree.remove_unfinished(self._store.directory)
            now, record, problem = self._store.read()
            if now == 'damaged' and self._state != 'damaged':
                raise Refused('nothing was copied: the record on the target cannot be read any '
                              'more: ' + problem)
            if (now, record) != (self._state, self.record):
                raise Refused('nothing was copied: somebody else deployed there meanwhile; deploy '
                              'again')
            if now == 'damaged':
                self._store.set_aside()
        except LockedError as error:
            raise Refused('nothing was copied: %s' % error)
        except OSError as error:
            self._lock.release()
            self._forgets(reason_of(error))

    def _begin_record(self):
        options = self._options
        now = utc_text()
        run = {'id': now[:-1].replace(':', '') + '-' + os.urandom(3).hex(), 'at': now,
               'by': options['by'], 'machine': options['machine'],
               'revision': self._wanted['revision'], 'tool': self._wanted['tool'], 'copied': 0,
               'removed': 0, 'failed': 0, 'result': 'partly'}
        undo = UndoStore(self._tree, self._store.directory)
        undo.sweep()
        if not options['no_undo']:
            problem = undo.keep(self.plan, self.record, run,
                                {'runs': options['undo_runs'], 'bytes': options['undo_bytes']})
            if problem:
                self.warnings.append('this deploy cannot be taken back: ' + problem)
        record = dict(self.record, files=dict(self.record['files']),
                      owed=dict(self.record['owed']))
        for name in ('project', 'platform', 'configuration'):
            record[name] = self._wanted[name]
        self._keeper = Keeper(self._tree, self._store, self._lock, self.record, record, run)
        if self.plan.after_deploy:
            self._keeper.owe_after_deploy(self.plan.after_deploy)

    # The work.

    def _execute(self):
        try:
            self._tree.handle(self._tree.root, make=True)
        except OSError as error:
            raise Refused('nothing was copied: %s: %s' % (self._tree.root, reason_of(error)))
        if self._store:
            self._take_lock()
        if self._store:
            self._begin_record()
        self._announce()
        work = [row for row in self.plan.rows if not self._finish_without_copy(row)]
        self._copy(self._prepared([row for row in work if not row.entry['link']]))
        self._make_links(self._prepared([row for row in work if row.entry['link']]))
        for directory in self._changed_directories:
            self._sync(directory)
        self._do_steps()
        for row in self.plan.rows:
            self._finish(row, INTERRUPTED if self._is_cancelled() else '')
        ran = self._run_after_deploy()
        if not self._keeper:
            return
        if ran:
            self._keeper.owe_after_deploy('')
        problem = self._keeper.end(self._is_cancelled())
        if problem:
            self.warnings.append('the target cannot remember this deploy: ' + problem)
        self.record = self._keeper.record

    def _sync(self, directory):
        try:
            os.fsync(self._tree.handle(directory))
        except OSError:
            pass  # a file is whole under its name in any case

    def _announce(self):
        if not self._keeper:
            return
        for path in self.plan.forgotten:
            self._keeper.forget(path, False)
        for row in self.plan.rows:
            if row.action in ('copied', 'unchanged', 'mode') and row.entry:
                self._keeper.owe(row.path, row.steps)
        self._keeper.begin()

    def _finish(self, row, problem):
        """The row has ended; a problem makes it a failed one. Rows end once."""
        if row in self._done:
            return
        self._done.add(row)
        if problem:
            row.action, row.error = 'failed', problem
        if self._keeper and row.action in ('failed', 'refused'):
            self._keeper.failed()

    def _finish_without_copy(self, row):
        """False for a row that is to be copied."""
        if row.action == 'copied':
            return False
        try:
            self._tree.stop_when_cancelled()
            if row.action == 'removed':
                self._tree.remove(row.directory, row.name)
                self.changed = True
                if self._keeper:
                    self._keeper.forget(row.path, True)
            elif row.action == 'mode':
                self._tree.set_mode(row.directory, row.name, row.entry['mode'])
                self.changed = True
            if row.action in ('unchanged', 'mode') and row.state == 'same':
                self._remember(row, False)
        except Interrupted:
            self._finish(row, INTERRUPTED)
        except OSError as error:
            self._finish(row, reason_of(error))
        if not row.steps:
            self._finish(row, row.error)
        return True

    def _remember(self, row, was_copied):
        if not self._keeper or row.operation == 'runAndRemove':
            return
        entry = row.entry
        time = entry['time'] if was_copied else row.there.st_mtime_ns
        time = 0 if entry['link'] else min(max(time // 1000000000, 0), MOST_TIME)
        file = {name: entry[name] for name in ('localName', 'class', 'size', 'sha256', 'mode',
                                               'link')}
        file.update(time=time, platform=self._wanted['platform'],
                    configuration=self._wanted['configuration'])
        known = self._keeper.find(row.path)
        # What was deployed keeps its time in the record, whoever touched it since.
        if not was_copied and known and known['sha256'] == entry['sha256']:
            file['time'] = known['time']
        self._keeper.put(row.path, file, was_copied)

    def _prepared(self, rows):
        """The rows whose directories are there now."""
        directories = {}
        for row in rows:
            if row.directory in directories or self._is_cancelled():
                continue
            try:
                self._tree.handle(row.directory, make=True)
                self._tree.remove_unfinished(row.directory)
                directories[row.directory] = ''
            except OSError as error:
                directories[row.directory] = reason_of(error)
        for row in rows:
            if directories.get(row.directory):
                self._finish(row, directories[row.directory])
        return [row for row in rows if row not in self._done]

    def _copy(self, rows):
        waiting, size = [], 0
        for row in rows:
            file = self._write(row)
            if file:
                waiting.append((row, file))
                size += row.entry['size']
            if len(waiting) >= MOST_WAITING or size >= MOST_BYTES_WAITING:
                self._put_in_place(waiting)
                waiting, size = [], 0
        self._put_in_place(waiting)

    def _write(self, row):
        entry, file = row.entry, None
        try:
            self._tree.stop_when_cancelled()
            file = self._tree.begin(row.directory)
            self._contents.write(entry['sha256'], file, self._tree)
            file.stamp(entry['mode'], entry['time'])
            return file
        except Interrupted:
            self._finish(row, INTERRUPTED)
        except ContentError as error:
            self._finish(row, str(error))
        except OSError as error:
            self._finish(row, reason_of(error))
        if file:
            file.close()
        return None

    def _put_in_place(self, waiting):
        """All are brought to the disk before the first takes its name: whatever happens to the
        machine, no name stands for half a file."""
        for row, file in waiting:
            try:
                file.complete()
            except OSError as error:
                self._finish(row, reason_of(error))
        for row, file in waiting:
            try:
                if row not in self._done:
                    file.put_in_place(row.name)
                    self._copied(row)
            except OSError as error:
                self._finish(row, reason_of(error))
            file.close()

    def _copied(self, row):
        self.changed = True
        self._changed_directories.add(row.directory)
        self._remember(row, True)
        if not row.steps:
            self._finish(row, '')

    def _make_links(self, rows):
        for row in rows:
            try:
                self._tree.stop_when_cancelled()
                self._tree.make_link(row.directory, row.name, row.entry['link'])
                self._copied(row)
            except Interrupted:
                self._finish(row, INTERRUPTED)
            except OSError as error:
                self._finish(row, reason_of(error))

    def _do_steps(self):
        steps = Steps(self._tree, self._contents, self.output)
        for row in self.plan.rows:
            if row in self._done or not row.steps:
                continue
            problem, left = '', list(row.steps)
            while left and not problem:
                problem = steps.do(row, left[0])
                if not problem:
                    self.changed = True
                    left.pop(0)
                    self._owe(row, left)
            if row.operation == 'runAndRemove':
                problem = self._remove_after_run(row, problem)
            self._finish(row, problem)

    def _owe(self, row, steps):
        if self._keeper:
            self._keeper.owe(row.path, steps)

    def _remove_after_run(self, row, problem):
        # It comes back with the next deploy, and is run then.
        self._owe(row, [])
        try:
            self._tree.remove(row.directory, row.name)
        except OSError as error:
            return problem or 'ran, but cannot be removed: ' + reason_of(error)
        return problem

    def _run_after_deploy(self):
        """True when it is not owed any more. All files have to be in place."""
        command = self.plan.after_deploy
        if not command:
            return False
        text = 'the command after the deploy, "%s", ' % command
        if self._is_cancelled() or any(row.action == 'failed' for row in self.plan.rows):
            self.after_deploy_problem = text + 'was not run, since not all files are in place'
            return False
        try:
            problem = run_command(command, self._tree.root, self._tree, self.output)
        except Interrupted:
            problem = INTERRUPTED
        self.changed = self.changed or not problem
        self.after_deploy_problem = text + problem if problem else ''
        return not problem
