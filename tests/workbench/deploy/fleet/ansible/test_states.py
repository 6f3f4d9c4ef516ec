"""How the list, the record and the machine stand to each other, and what a deploy does then."""
import os
import stat
import unittest

from machine import TIME, MachineTest, entry, link

SECOND = 1000000000


class States(MachineTest):

    def one(self, text, **options):
        """Deploys one file; its state, its action and what is there then."""
        run = self.deploy(self.file('a', text), **options)
        return self.states(run)[0], self.actions(run)[0], self.read('demo/a')

    def test_a_new_file_is_copied_with_rights_and_time(self):
        run = self.deploy(self.file('sub/a', 'one', mode=0o750, time=TIME + 123456789))
        status = os.stat(self.path('demo/sub/a'))
        self.assertEqual(self.states(run), ['new'])
        self.assertEqual(stat.S_IMODE(status.st_mode), 0o750)
        self.assertEqual(status.st_mtime_ns, TIME + 123456789)
        self.assertTrue(run.changed)

    def test_a_second_run_changes_nothing_at_all(self):
        files = [self.file('a', 'one'), self.file('b/c', 'two', mode=0o755), link('b/l', 'c')]
        self.deploy(*files)
        before = self.snapshot()
        run = self.deploy(*files)
        self.assertEqual(self.actions(run), ['unchanged'] * 3)
        self.assertFalse(run.changed)
        self.assertEqual(self.snapshot(), before)

    def test_what_changed_here_is_copied(self):
        self.one('one')
        self.assertEqual(self.one('two'), ('changed', 'copied', 'two'))

    def test_what_others_changed_is_refused_and_the_others_are_copied(self):
        self.one('one')
        self.write('demo/a', 'mine')
        run = self.deploy(self.file('a', 'one'), self.file('b', 'two'))
        self.assertEqual(self.states(run), ['changed-there', 'new'])
        self.assertEqual(self.actions(run), ['refused', 'copied'])
        self.assertEqual((self.read('demo/a'), self.read('demo/b')), ('mine', 'two'))
        self.assertEqual(self.record()['runs'][0]['result'], 'partly')

    def test_what_was_changed_here_and_there_is_a_conflict(self):
        self.one('one')
        self.write('demo/a', 'mine')
        self.assertEqual(self.one('other'), ('conflict', 'refused', 'mine'))
        self.assertEqual(self.one('other', force=True), ('conflict', 'refused', 'mine'))
        self.assertEqual(self.one('other', overwrite_changed=True), ('conflict', 'copied', 'other'))

    def test_what_is_gone_there_comes_back(self):
        self.one('one')
        os.unlink(self.path('demo/a'))
        self.assertEqual(self.one('one'), ('gone-there', 'copied', 'one'))

    def test_what_nobody_remembers_is_copied_and_a_newer_one_named(self):
        self.write('demo/a', 'theirs', TIME + 5 * SECOND)
        run = self.deploy(self.file('a', 'one'))
        self.assertEqual(self.states(run), ['unrecorded'])
        self.assertEqual(self.read('demo/a'), 'one')
        self.assertIn('is newer than "a"', run.warnings[0])

    def test_equal_content_with_another_time_is_the_same_and_stays(self):
        self.write('demo/a', 'one', TIME + 77 * SECOND)
        run = self.deploy(self.file('a', 'one'))
        self.assertEqual((self.states(run), run.changed), (['same'], False))
        self.assertEqual(os.stat(self.path('demo/a')).st_mtime_ns, TIME + 77 * SECOND)
        self.assertEqual(self.record()['files']['demo/a']['time'], TIME // SECOND + 77)
        self.assertEqual(self.record()['runs'], [])
        before = self.snapshot()
        self.deploy(self.file('a', 'one'))
        self.assertEqual(self.snapshot(), before)

    def test_whole_seconds_there_are_the_same_time(self):
        self.write('demo/a', 'xxx', TIME)
        # Another content: only size and time can say that it is the same.
        self.assertEqual(self.states(self.deploy(self.file('a', 'one', time=TIME + 5))), ['same'])

    def test_another_fraction_of_a_second_lets_the_hash_decide(self):
        self.write('demo/a', 'xxx', TIME + 7)
        self.assertEqual(self.states(self.deploy(self.file('a', 'one', time=TIME + 5))),
                         ['unrecorded'])

    def test_checksum_trusts_no_time(self):
        self.one('one')
        self.write('demo/a', 'two', TIME)
        self.assertEqual(self.one('one')[:2], ('same', 'unchanged'))
        self.assertEqual(self.one('one', checksum=True)[:2], ('changed-there', 'refused'))

    def test_rights_alone_are_brought_in_line(self):
        self.one('one')
        os.chmod(self.path('demo/a'), 0o600)
        run = self.deploy(self.file('a', 'one'))
        self.assertEqual((self.actions(run), run.changed), (['mode'], True))
        self.assertEqual(stat.S_IMODE(os.stat(self.path('demo/a')).st_mode), 0o644)

    def test_a_file_that_is_not_to_be_overwritten_is_kept(self):
        self.write('demo/a', 'mine')
        run = self.deploy(self.file('a', 'one', overwrite=False), force=True)
        self.assertEqual((self.actions(run), self.read('demo/a')), (['kept'], 'mine'))
        self.assertFalse(run.changed)

    def test_force_copies_what_is_the_same(self):
        self.one('one')
        self.assertEqual(self.one('one', force=True), ('same', 'copied', 'one'))

    def test_a_file_that_was_missing_here_fails_or_is_skipped(self):
        missing = entry('a', problem='the local file a is missing', sha256='')
        run = self.deploy(missing, self.file('b', 'two'))
        self.assertEqual(self.actions(run), ['failed', 'copied'])
        self.assertEqual(run.plan.rows[0].error, 'the local file a is missing')
        self.assertEqual(self.actions(self.deploy(missing, skip_missing=True)), ['skipped'])

    def test_an_entry_that_is_to_be_removed_goes(self):
        self.one('one')
        run = self.deploy(entry('a', operation='remove', sha256=''))
        self.assertEqual((self.actions(run), run.changed), (['removed'], True))
        self.assertFalse(os.path.exists(self.path('demo/a')))
        self.assertFalse(self.deploy(entry('a', operation='remove', sha256='')).changed)

    def test_links_are_made_behind_what_they_lead_to(self):
        self.deploy(link('l', 'a'), self.file('a', 'one'))
        self.assertEqual(os.readlink(self.path('demo/l')), 'a')
        os.unlink(self.path('demo/l'))
        os.symlink('elsewhere', self.path('demo/l'))
        run = self.deploy(link('l', 'a'), self.file('a', 'one'))
        self.assertEqual(self.states(run), ['changed-there', 'same'])
        self.assertEqual(os.readlink(self.path('demo/l')), 'elsewhere')

    def test_a_link_in_the_place_of_a_file_is_replaced_and_not_followed(self):
        os.makedirs(self.path('demo'))
        with open(os.path.join(self.base, 'outside'), 'w') as stream:
            stream.write('theirs')
        os.symlink(os.path.join(self.base, 'outside'), self.path('demo/a'))
        self.deploy(self.file('a', 'one'))
        self.assertFalse(os.path.islink(self.path('demo/a')))
        with open(os.path.join(self.base, 'outside')) as stream:
            self.assertEqual(stream.read(), 'theirs')


class LeftOvers(MachineTest):

    def setUp(self):
        super().setUp()
        self.deploy(self.file('a', 'one'), self.file('b', 'two'))

    def left(self, run):
        return [(row.path, row.state) for row in run.plan.left_overs]

    def test_what_is_not_in_the_list_any_more_stays(self):
        run = self.deploy(self.file('a', 'one'))
        self.assertEqual(self.left(run), [('demo/b', 'left-over')])
        self.assertFalse(run.changed)
        self.assertTrue(os.path.exists(self.path('demo/b')))

    def test_prune_removes_it_unless_others_changed_it(self):
        self.write('demo/b', 'mine')
        run = self.deploy(self.file('a', 'one'), prune=True)
        self.assertEqual(self.actions(run), ['unchanged', 'refused'])
        self.assertEqual(self.left(run), [('demo/b', 'left-over-changed')])
        self.write('demo/b', 'two', TIME)
        run = self.deploy(self.file('a', 'one'), prune=True)
        self.assertEqual(self.actions(run), ['unchanged', 'removed'])
        self.assertFalse(os.path.exists(self.path('demo/b')))
        self.assertNotIn('demo/b', self.record()['files'])

    def test_one_that_is_gone_is_forgotten(self):
        os.unlink(self.path('demo/b'))
        self.assertEqual(self.left(self.deploy(self.file('a', 'one'))), [])
        self.assertNotIn('demo/b', self.record()['files'])

    def test_files_of_another_configuration_are_none(self):
        self.more = {'configuration': 'Release'}
        self.assertEqual(self.left(self.deploy(self.file('a', 'one'))), [])
        self.assertEqual(self.record()['files']['demo/b']['configuration'], 'Debug')


class CheckMode(MachineTest):

    def test_it_changes_nothing_and_tells_what_would_change(self):
        self.deploy(self.file('a', 'one'), self.file('gone', 'x'))
        self.write('demo/m', 'mine')
        before = self.snapshot()
        run = self.deploy(self.file('a', 'two'), self.file('n', 'new'), check=True, prune=True)
        self.assertEqual(self.actions(run), ['copied', 'copied', 'removed'])
        self.assertTrue(run.changed)
        self.assertFalse(run.carried_out)
        self.assertEqual(self.snapshot(), before)

    def test_a_machine_that_is_as_it_should_be_would_not_change(self):
        self.deploy(self.file('a', 'one'))
        self.assertFalse(self.deploy(self.file('a', 'one'), check=True).changed)

    def test_a_root_that_is_not_there_is_not_made(self):
        self.assertTrue(self.deploy(self.file('a', 'one'), check=True).changed)
        self.assertFalse(os.path.exists(self.root))

    def test_differences_show_texts_and_leave_out_what_stays(self):
        self.deploy(self.file('a', 'one\n'), self.file('b', 'same\n'))
        run = self.deploy(self.file('a', 'two\n'), self.file('b', 'same\n'), check=True, diff=True)
        self.assertEqual(run.diff, [{'before_header': self.path('demo/a'),
                                     'after_header': self.path('demo/a'),
                                     'before': 'one\n', 'after': 'two\n'}])

    def test_differences_show_no_bytes_that_are_no_text(self):
        run = self.deploy(self.file('a', 'a\0b'), check=True, diff=True)
        self.assertIn('3 bytes, SHA-256', run.diff[0]['after'])

    def test_contents_that_are_lacking_are_named_and_nothing_is_done(self):
        run = self.deploy(entry('a', 'one'))
        self.assertEqual(run.needed, [entry('a', 'one')['sha256']])
        self.assertFalse(os.path.exists(self.root))
        # A look needs none.
        self.assertEqual(self.deploy(entry('a', 'one'), check=True).needed, [])


if __name__ == '__main__':
    unittest.main()
