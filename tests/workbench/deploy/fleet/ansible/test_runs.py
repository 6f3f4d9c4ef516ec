"""The record, what is kept to take runs back, the lock, and what is done behind a copy."""
import errno
import json
import os
import socket
import stat
import time
import unittest
from unittest import mock

from machine import TIME, MachineTest, entry, link, part, sha256

PLACE = '.deployment-manager/demo/'


class Records(MachineTest):

    def test_a_record_says_what_was_deployed_and_by_whom(self):
        self.deploy(self.file('b', 'one', mode=0o755), link('a', 'b'))
        record = self.record()
        self.assertEqual(list(record), ['format', 'project', 'platform', 'configuration', 'runs',
                                        'files'])
        run = record['runs'][0]
        self.assertRegex(run['id'], r'^\d{4}-\d\d-\d\dT\d{6}-[0-9a-f]{6}$')
        self.assertRegex(run['at'], r'^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$')
        self.assertEqual([run[name] for name in ('by', 'machine', 'revision', 'tool', 'copied',
                                                 'removed', 'failed', 'result')],
                         ['eva', 'bench', 'abc', 'deployment-manager 1', 2, 0, 0, 'done'])
        self.assertEqual(list(record['files']), ['demo/a', 'demo/b'])
        self.assertEqual(record['files']['demo/b'],
                         {'localName': 'b', 'class': 'File', 'size': 3,
                          'time': TIME // 1000000000, 'sha256': sha256('one'), 'mode': '0755',
                          'run': run['id']})
        self.assertEqual(record['files']['demo/a']['link'], 'b')

    def test_twenty_runs_are_remembered_newest_first(self):
        for count in range(22):
            self.deploy(self.file('a', 'text %d' % count), no_undo=True)
        runs = self.record()['runs']
        self.assertEqual(len(runs), 20)
        self.assertEqual(self.record()['files']['demo/a']['run'], runs[0]['id'])

    def test_a_machine_without_a_record_has_none_afterwards(self):
        self.more = {'stateless': True}
        self.deploy(self.file('a', 'one'))
        self.assertEqual(os.listdir(self.root), ['demo'])

    def test_a_record_that_cannot_be_written_is_a_warning(self):
        self.write('.deployment-manager', 'a file')
        run = self.deploy(self.file('a', 'one'))
        self.assertIn('cannot remember', run.warnings[0])
        self.assertEqual(self.read('demo/a'), 'one')

    def test_what_bad_ends_left_is_swept(self):
        left = '.deploymgr-0123456789abcdef-1-aa-0-.part'
        for directory in ('demo/', PLACE, PLACE + 'undo/'):
            self.write(directory + left, 'half')
        self.deploy(self.file('a', 'one'))
        for directory in ('demo/', PLACE, PLACE + 'undo/'):
            self.assertNotIn(left, os.listdir(self.path(directory)))

    def test_the_record_is_written_while_a_long_deploy_runs(self):
        keeper = part('keeper')
        interval, keeper.WRITE_INTERVAL = keeper.WRITE_INTERVAL, 0.01
        seen = []

        def look():
            if not seen and os.path.exists(self.path(PLACE + 'record.json')):
                seen.extend([self.record()] if self.record()['runs'] else [])
            time.sleep(0.02)
            return False
        try:
            part('run').MOST_WAITING = 1
            self.deploy(*[self.file('f%d' % i, 'text %d' % i) for i in range(6)], cancelled=look)
        finally:
            keeper.WRITE_INTERVAL, part('run').MOST_WAITING = interval, 128
        self.assertEqual(seen[0]['runs'][0]['result'], 'partly')
        self.assertLess(len(seen[0]['files']), 6)

    def test_an_interrupt_leaves_whole_files_and_a_record_of_them(self):
        calls = []

        def interrupt():
            calls.append(1)
            return os.path.exists(self.path('demo/f2'))
        part('run').MOST_WAITING = 1
        try:
            run = self.deploy(*[self.file('f%d' % i, 'text %d' % i) for i in range(5)],
                              cancelled=interrupt)
        finally:
            part('run').MOST_WAITING = 128
        self.assertEqual(part('answer').status_of(run), 130)
        self.assertEqual(sorted(os.listdir(self.path('demo'))), ['f0', 'f1', 'f2'])
        self.assertEqual(sorted(self.record()['files']), ['demo/f0', 'demo/f1', 'demo/f2'])
        self.assertEqual(self.record()['runs'][0]['result'], 'partly')
        self.assertEqual(os.listdir(self.path(PLACE)).count('lock'), 0)


class Undo(MachineTest):

    def manifest(self, number=0):
        run = self.record()['runs'][number]['id']
        return json.loads(self.read('%sundo/%s/undo.json' % (PLACE, run)))

    def test_what_is_replaced_is_kept_under_a_second_name(self):
        self.deploy(self.file('a', 'one', mode=0o640), self.file('b', 'two'))
        inode = os.stat(self.path('demo/a')).st_ino
        self.deploy(self.file('a', 'other'), prune=True)
        manifest = self.manifest()
        self.assertEqual([(file['kind'], file['path']) for file in manifest['files']],
                         [('restore', 'demo/a'), ('restore', 'demo/b')])
        self.assertEqual(manifest['files'][0]['mode'], '0640')
        self.assertEqual(manifest['files'][0]['put'], {'size': 5, 'time': TIME // 1000000000})
        self.assertIsNone(manifest['files'][1]['put'])
        kept = self.path('%sundo/%s/1' % (PLACE, self.record()['runs'][0]['id']))
        self.assertEqual(os.stat(kept).st_ino, inode)
        self.assertEqual(manifest['files'][0]['recorded']['sha256'], sha256('one'))

    def test_what_is_new_is_named_with_the_directories_that_are_made(self):
        self.deploy(self.file('sub/deep/a', 'one'))
        manifest = self.manifest()
        self.assertEqual(manifest['files'][0], {'kind': 'remove', 'path': 'demo/sub/deep/a',
                                                'put': {'size': 3, 'time': TIME // 1000000000}})
        self.assertEqual(manifest['directories'], ['demo/sub/deep', 'demo/sub', 'demo'])

    def test_rights_are_kept_too(self):
        self.deploy(self.file('a', 'one'))
        os.chmod(self.path('demo/a'), 0o600)
        self.deploy(self.file('a', 'one'))
        run = json.loads(self.read(PLACE + 'undo/index.json'))['runs'][0]['id']
        file = json.loads(self.read('%sundo/%s/undo.json' % (PLACE, run)))['files'][0]
        self.assertEqual((file['kind'], file['mode']), ('touch', '0600'))

    def test_three_runs_are_kept(self):
        for text in ('one', 'two', 'three', 'four', 'five'):
            self.deploy(self.file('a', text))
        index = json.loads(self.read(PLACE + 'undo/index.json'))
        runs = [run['id'] for run in self.record()['runs']]
        self.assertEqual([run['id'] for run in index['runs']], runs[:3])
        self.assertEqual(sorted(os.listdir(self.path(PLACE + 'undo'))),
                         sorted(runs[:3] + ['index.json']))

    def test_what_a_bad_end_left_of_a_run_is_swept(self):
        for text in ('one', 'two'):
            self.deploy(self.file('a', text))
        index = json.loads(self.read(PLACE + 'undo/index.json'))
        gone = index['runs'].pop()['id']
        self.write(PLACE + 'undo/index.json', json.dumps(dict(index, unfinished=[gone])))
        self.deploy(self.file('a', 'three'))
        index = json.loads(self.read(PLACE + 'undo/index.json'))
        self.assertNotIn('unfinished', index)
        self.assertEqual(len(index['runs']), 2)
        self.assertNotIn(gone, os.listdir(self.path(PLACE + 'undo')))

    def test_more_bytes_than_may_be_kept_are_not(self):
        self.deploy(self.file('a', 'one'))
        run = self.deploy(self.file('a', 'two'), undo_bytes=2)
        self.assertIn('cannot be taken back', run.warnings[0])
        self.assertEqual(self.read('demo/a'), 'two')

    def test_without_undo_nothing_is_kept(self):
        self.deploy(self.file('a', 'one'), no_undo=True)
        self.assertFalse(os.path.exists(self.path(PLACE + 'undo')))

    def test_a_damaged_index_counts_as_none(self):
        for text in ('{', '{"format":1,"runs":[{"id":"../x","bytes":1}]}',
                     '{"format":1,"runs":[],"unfinished":["../../x"]}'):
            self.write(PLACE + 'undo/index.json', text)
            self.deploy(self.file('a', 'text ' + text))
            self.assertEqual(len(json.loads(self.read(PLACE + 'undo/index.json'))['runs']), 1)


class Locks(MachineTest):

    def lock(self, age=0, **more):
        value = {'by': 'tom', 'machine': 'far', 'machineMark': 'other', 'process': 4711,
                 'since': '2026-11-22T00:00:00Z'}
        value.update(more)
        self.write(PLACE + 'lock', json.dumps(value))
        os.utime(self.path(PLACE + 'lock'), (time.time() - age, time.time() - age))

    def refused(self):
        with self.assertRaises(part('run').Refused) as caught:
            self.deploy(self.file('a', 'one'))
        self.assertFalse(os.path.exists(self.path('demo')))
        return str(caught.exception)

    def test_a_lock_that_lives_names_its_holder(self):
        self.lock(age=50)
        self.assertIn('tom on far (process 4711), since 2026-11-22T00:00:00Z', self.refused())

    def test_a_text_of_a_lock_shows_no_control_characters(self):
        self.lock(by='\x1b[31mtom')
        self.assertIn('?[31mtom', self.refused())

    def test_one_that_says_nothing_is_somebody_s_for_a_moment(self):
        self.write(PLACE + 'lock', '')
        self.assertIn('somebody', self.refused())
        os.utime(self.path(PLACE + 'lock'), (time.time() - 6, time.time() - 6))
        self.deploy(self.file('a', 'one'))

    def test_a_stale_one_is_taken_over_and_taken_back(self):
        self.lock(age=61)
        self.deploy(self.file('a', 'one'))
        self.assertFalse(os.path.exists(self.path(PLACE + 'lock')))

    def test_one_of_a_process_that_is_gone_is_taken_over_at_once(self):
        gone = os.fork()
        if not gone:
            os._exit(0)
        os.waitpid(gone, 0)
        self.lock(process=gone, machineMark=part('names').machine_mark())
        self.deploy(self.file('a', 'one'))

    def test_one_of_a_process_that_nobody_asked_for_its_end_is_taken_over_at_once(self):
        gone = os.fork()
        if not gone:
            os._exit(0)
        os.waitid(os.P_PID, gone, os.WEXITED | os.WNOWAIT)
        self.lock(process=gone, machineMark=part('names').machine_mark())
        self.deploy(self.file('a', 'one'))
        os.waitpid(gone, 0)

    def test_it_appears_with_its_text_or_not_at_all(self):
        killed = os.fork()
        if not killed:
            # It ends in front of the first byte that it writes there.
            with mock.patch('os.write', lambda *_args: os._exit(9)):
                self.deploy(self.file('a', 'one'))
            os._exit(0)
        self.assertEqual(os.WEXITSTATUS(os.waitpid(killed, 0)[1]), 9)
        self.assertEqual(len(os.listdir(self.path(PLACE))), 1)
        self.assertFalse(os.path.exists(self.path(PLACE + 'lock')))
        self.deploy(self.file('a', 'one'))

    def test_without_second_names_it_is_made_all_the_same(self):
        def refuse(*_args, **_more):
            raise OSError(errno.EPERM, 'no')
        with mock.patch('os.link', refuse):
            self.deploy(self.file('a', 'one'), no_undo=True)
            self.assertEqual(self.read('demo/a'), 'one')
            self.lock()
            self.refused_of('a', 'two')

    def refused_of(self, name, content):
        with self.assertRaises(part('run').Refused):
            self.deploy(self.file(name, content), no_undo=True)

    def test_one_of_a_process_that_lives_here_is_respected(self):
        self.lock(process=os.getpid(), machineMark=part('names').machine_mark(),
                  machine=socket.gethostname())
        self.refused()

    def test_break_lock_goes_on(self):
        self.lock()
        self.deploy(self.file('a', 'one'), break_lock=True)
        self.assertEqual(self.read('demo/a'), 'one')

    def test_a_machine_that_needs_nothing_done_meets_a_lock_all_the_same(self):
        self.deploy(self.file('a', 'one'))
        self.lock()
        with self.assertRaises(part('run').Refused):
            self.deploy(self.file('a', 'one'))
        self.assertFalse(self.deploy(self.file('a', 'one'), check=True).changed)


class Takeovers(MachineTest):
    """Two who deploy, and a lock that somebody left behind."""

    def setUp(self):
        super().setUp()
        self.leave('lock')
        self.eva, self.tom = self.lock(), self.lock()

    def leave(self, name):
        self.write(PLACE + name, '{"by":"ada","machine":"far","process":0,"since":"yesterday"}')
        os.utime(self.path(PLACE + name), (time.time() - 120, time.time() - 120))

    def lock(self):
        return part('lock').Lock(part('tree').Tree(self.root), self.path(PLACE).rstrip('/'))

    def names(self):
        return sorted(os.listdir(self.path(PLACE)))

    def while_eva_removes(self, what):
        """Eva takes the lock; `what` happens in the moment in which she removes the stale one."""
        tree = part('tree').Tree
        remove, happened = tree.remove, []

        def meanwhile(self_, directory, name):
            if name == 'lock' and not happened:
                happened.append(True)
                what()
            remove(self_, directory, name)
        with mock.patch.object(tree, 'remove', meanwhile):
            self.eva.take('eva', False)
        self.assertTrue(happened)

    def refused(self, action):
        with self.assertRaises(part('lock').LockedError) as caught:
            action()
        return str(caught.exception)

    def test_nobody_is_let_in_while_a_stale_one_is_removed(self):
        told = []
        self.while_eva_removes(
            lambda: told.append(self.refused(lambda: self.tom.take('tom', False))))
        self.assertIn('eva on ', told[0])
        self.assertEqual(self.names(), ['lock'])
        self.assertIn('"by":"eva"', self.read(PLACE + 'lock').replace(' ', ''))

    def test_one_who_saw_it_stale_leaves_the_new_one_alone(self):
        make, happened = part('lock').Lock._make, []

        def meanwhile(self_, name):
            if name == 'lock-takeover' and not happened:
                happened.append(True)
                self.tom.take('tom', False)
            make(self_, name)
        with mock.patch.object(part('lock').Lock, '_make', meanwhile):
            self.assertIn('tom on ', self.refused(lambda: self.eva.take('eva', False)))
        self.assertTrue(happened)
        self.assertEqual(self.names(), ['lock'])

    def test_takeovers_that_were_cut_off_are_taken_over_too(self):
        for name in ('lock-takeover', 'lock-takeover-takeover', 'lock-takeover-takeover-takeover'):
            self.leave(name)
        self.eva.take('eva', False)
        self.assertEqual(self.names(), ['lock'])

    def test_one_who_wakes_up_leaves_the_new_holder_its_lock(self):
        self.eva.take('eva', False)
        self.tom.take('tom', True)
        os.utime(self.path(PLACE + 'lock'), (1000, 1000))
        self.eva.refresh()
        self.assertEqual(os.stat(self.path(PLACE + 'lock')).st_mtime, 1000)
        self.eva.release()
        self.assertEqual(self.names(), ['lock'])
        self.tom.refresh()
        self.assertGreater(os.stat(self.path(PLACE + 'lock')).st_mtime, 1000)
        self.tom.release()
        self.assertEqual(self.names(), [])


class Steps(MachineTest):

    def test_commands_run_where_the_file_is_when_it_was_copied(self):
        file = self.file('sub/a', 'one', steps=['command:pwd > where; echo said'])
        run = self.deploy(file)
        self.assertEqual(self.read('demo/sub/where').strip(), self.path('demo/sub'))
        self.assertEqual(run.output, ['said\n'])
        os.unlink(self.path('demo/sub/where'))
        self.assertFalse(self.deploy(file).changed)
        self.assertFalse(os.path.exists(self.path('demo/sub/where')))

    def test_a_command_that_failed_is_owed_until_it_succeeds(self):
        file = self.file('a', 'one', steps=['command:test -e ok', 'command:echo done > done'])
        run = self.deploy(file)
        self.assertEqual(run.plan.rows[0].error,
                         'was copied, but "test -e ok" ended with status 1')
        self.assertEqual(self.record()['owed'],
                         {'demo/a': ['command:test -e ok', 'command:echo done > done']})
        again = self.deploy(file)
        self.assertIn('is there, but', again.plan.rows[0].error)
        self.write('demo/ok', '')
        self.assertTrue(self.deploy(file).changed)
        self.assertEqual(self.read('demo/done'), 'done\n')
        self.assertNotIn('owed', self.record())
        self.assertFalse(self.deploy(file).changed)

    def test_a_program_is_run_and_removed(self):
        program = self.file('p', '#!/bin/sh\necho ran >> ../ran\n', mode=0o755, steps=['run'],
                            operation='runAndRemove')
        self.deploy(program)
        self.assertEqual(self.read('ran'), 'ran\n')
        self.assertFalse(os.path.exists(self.path('demo/p')))
        self.assertNotIn('demo/p', self.record()['files'])

    def test_the_command_after_the_deploy_runs_when_something_changed(self):
        self.more = {'afterDeploy': 'echo ran >> after; test -e ok'}
        run = self.deploy(self.file('a', 'one'))
        self.assertIn('the command after the deploy', run.after_deploy_problem)
        self.assertEqual(self.record()['owedAfterDeploy'], 'echo ran >> after; test -e ok')
        self.write('ok', '')
        self.assertEqual(self.deploy(self.file('a', 'one')).after_deploy_problem, '')
        self.assertEqual(self.read('after'), 'ran\nran\n')
        self.assertFalse(self.deploy(self.file('a', 'one')).changed)
        self.assertEqual(self.read('after'), 'ran\nran\n')

    def test_it_does_not_run_when_a_file_failed(self):
        self.more = {'afterDeploy': 'echo ran > after'}
        run = self.deploy(entry('m', problem='missing', sha256=''), self.file('a', 'one'))
        self.assertIn('was not run', run.after_deploy_problem)
        self.assertFalse(os.path.exists(self.path('after')))

    def member(self, name, text, **more):
        self.texts[text] = text
        value = {'kind': 'file', 'name': name, 'sha256': sha256(text), 'mode': 0o600, 'time': TIME}
        value.update(more)
        return value

    def test_an_archive_is_unpacked_beside_it(self):
        members = [{'kind': 'link', 'name': 'd/l', 'link': 'x'}, {'kind': 'directory', 'name': 'e'},
                   self.member('d/x', 'inner')]
        self.deploy(self.file('a.tar', 'tar', steps=['unpack'], members=members))
        self.assertEqual(self.read('demo/d/l'), 'inner')
        self.assertEqual(stat.S_IMODE(os.stat(self.path('demo/d/x')).st_mode), 0o600)
        self.assertTrue(os.path.isdir(self.path('demo/e')))

    def test_a_member_that_leads_out_lets_nothing_be_unpacked(self):
        os.makedirs(self.path('demo'))
        os.symlink(self.base, self.path('demo/way'))
        for name in ('../x', '/x', 'way/x', 'a.tar', '.deployment-manager/x'):
            members = [self.member('fine', 'fine'), self.member(name, 'inner')]
            run = self.deploy(self.file('a.tar', 'tar ' + name, steps=['unpack'], members=members))
            self.assertIn('a.tar cannot be unpacked', run.plan.rows[0].error, name)
            self.assertFalse(os.path.exists(self.path('demo/fine')), name)
        self.assertFalse(os.path.exists(os.path.join(self.base, 'x')))


class Answers(MachineTest):

    def test_a_document_is_that_of_a_deploy(self):
        self.deploy(self.file('a', 'one'))
        self.write('demo/a', 'mine')
        run = self.deploy(self.file('a', 'one'), self.file('b', 'two', steps=['command:false']))
        document = part('answer').document_of(run, self.wanted())
        self.assertEqual(list(document), ['platform', 'configuration', 'files', 'commands',
                                          'leftOvers', 'owed', 'afterDeploy', 'copied',
                                          'unchanged', 'kept', 'skipped', 'refused', 'failed'])
        self.assertEqual(document['files'][0],
                         {'localName': 'a', 'remoteFile': self.path('demo/a'), 'action': 'refused',
                          'bytes': 0, 'error': '', 'state': 'changed-there',
                          'reason': 'it was changed on the target since it was deployed'})
        self.assertEqual(document['owed'], [{'remoteFile': 'demo/b', 'command': 'false'}])
        self.assertEqual(part('answer').status_of(run), 8)

    def test_a_message_names_every_row_that_was_refused(self):
        self.deploy(self.file('a', 'one'), self.file('b', 'two'))
        self.write('demo/a', 'mine')
        self.write('demo/b', 'mine')
        run = self.deploy(self.file('a', 'one'), self.file('b', 'three'))
        message = part('answer').message_of(run)
        self.assertIn('2 refused: ' + self.path('demo/a'), message)
        self.assertIn(self.path('demo/b') + ': it was changed on the target since it was deployed,'
                      ' and here, too', message)


if __name__ == '__main__':
    unittest.main()
