"""Names, records and archives that nobody of good will made."""
import json
import os
import unittest
import zipfile

from machine import OPTIONS, MachineTest, entry, part, sha256

RECORD = '.deployment-manager/demo/record.json'


class HostileNames(MachineTest):

    def refused(self, *entries):
        """Why nothing was done."""
        before = self.snapshot()
        with self.assertRaises(part('run').Refused) as caught:
            self.deploy(*entries)
        self.assertEqual(self.snapshot(), before)
        return str(caught.exception)

    def test_a_path_that_leaves_the_root_lets_nothing_be_done(self):
        for path in ('../out', 'demo/../../out', '/etc/out', '~/out', '~root/out', 'C:/out',
                     '\\out', 'a\\..\\out', 'a/./b', 'a//b', 'a/', '', '.', 'a/..', 'n\0ul'):
            text = self.refused(self.file('fine', 'one'), self.file('x', 'two', path=path))
            self.assertIn('nothing was copied', text, path)

    def test_a_path_to_what_deploys_remember_is_none(self):
        for path in ('.deployment-manager/demo/record.json', '.Deployment-Manager/x'):
            self.assertIn('deploys keep', self.refused(self.file('x', 'one', path=path)))

    def test_a_name_of_an_unfinished_file_is_none(self):
        self.assertIn('not whole yet', self.refused(self.file('.deploymgr-x.part', 'one')))

    def test_a_name_that_is_too_long_is_none(self):
        self.assertIn('longer than 255', self.refused(self.file('n' * 256, 'one')))

    def test_a_directory_that_leads_out_of_the_root_is_refused(self):
        os.makedirs(self.root)
        os.mkdir(os.path.join(self.base, 'outside'))
        os.symlink(os.path.join(self.base, 'outside'), self.path('demo'))
        self.assertIn('outside the path', self.refused(self.file('a', 'one')))
        self.assertEqual(os.listdir(os.path.join(self.base, 'outside')), [])

    def test_a_directory_that_leads_elsewhere_below_the_root_is_followed(self):
        os.makedirs(self.path('v1'))
        os.symlink('v1', self.path('demo'))
        self.deploy(self.file('a', 'one'))
        self.assertEqual(self.read('v1/a'), 'one')
        self.assertIn('v1/a', self.record()['files'])

    def test_two_files_that_land_on_one_path_are_refused(self):
        os.makedirs(self.path('v1'))
        os.symlink('v1', self.path('demo'))
        text = self.refused(self.file('a', 'one'), self.file('b', 'two', path='v1/a'))
        self.assertIn('lands on %s, and so does "a"' % self.path('v1/a'), text)

    def test_a_file_where_a_directory_is_needed_is_refused(self):
        self.assertIn('which is a directory for',
                      self.refused(self.file('a', 'one'), self.file('a/b', 'two')))
        self.write('demo/c', 'file')
        self.assertIn('not a directory', self.refused(self.file('c/d', 'one')))
        os.mkdir(self.path('demo/e'))
        self.assertIn('which is a directory on the target', self.refused(self.file('e', 'one')))

    def test_a_root_that_is_no_full_path_or_no_directory_is_refused(self):
        for root in ('', 'relative', 'no\0ne'):
            self.root = root
            with self.assertRaises(part('run').Refused):
                self.deploy(self.file('a', 'one'))
        self.root = os.path.join(self.base, 'file')
        with open(self.root, 'w'):
            pass
        with self.assertRaises(part('run').Refused):
            self.deploy(self.file('a', 'one'))

    def test_an_archive_whose_member_is_another_one_is_told(self):
        contents = part('contents')
        self.texts['one'] = 'one'
        run_list = self.wanted(entry('a', 'one'))
        archive = os.path.join(self.base, 'bad.zip')
        with zipfile.ZipFile(archive, 'w') as file:
            file.writestr(sha256('one'), 'two')
        run = part('run').Deploy(self.root, run_list, OPTIONS, contents.Contents(archive))
        run.run()
        self.assertEqual(run.plan.rows[0].error, 'its content is not what the list says')
        self.assertEqual(os.listdir(self.path('demo')), [])


class HostileRecords(MachineTest):

    def setUp(self):
        super().setUp()
        self.deploy(self.file('a', 'one'), self.file('b', 'two'))
        self.good = self.record()

    def with_record(self, text):
        self.write(RECORD, text if isinstance(text, str) else json.dumps(text))
        return self.deploy(self.file('a', 'one'), prune=True)

    def test_a_damaged_one_counts_as_none_and_is_set_aside(self):
        for text in ('', '{', '[]', 'null', '{"format":0}', '{"format":"1"}', '{"format":true}',
                     '{"format":1,"format":1}', '[' * 5000, '{"format":1,"x":NaN}', '"\\ud800"'):
            run = self.with_record(text)
            self.assertIn('is damaged and counts as none', run.warnings[0], text)
            self.assertEqual(self.read('.deployment-manager/demo/record.damaged'), text)
            self.assertEqual(list(self.record()['files']), ['demo/a'])
            self.assertTrue(os.path.exists(self.path('demo/b')))

    def test_one_that_is_no_utf_8_is_damaged(self):
        with open(self.path(RECORD), 'wb') as stream:
            stream.write(b'{"format":1,"project":"\xff"}')
        self.assertIn('is damaged', self.deploy(self.file('a', 'one')).warnings[0])

    def test_names_in_it_are_checked_as_those_of_the_list(self):
        with open(os.path.join(self.base, 'victim'), 'w') as stream:
            stream.write('two')
        for path in ('../victim', '/etc/passwd', '~/x', 'demo/../../victim', 'a\\b', 'a//b',
                     '.deployment-manager/demo/record.json', 'demo/.deploymgr-1.part'):
            record = json.loads(json.dumps(self.good))
            record['files'][path] = record['files']['demo/b']
            self.assertIn('is damaged', self.with_record(record).warnings[0], path)
            record = json.loads(json.dumps(self.good))
            record['owed'] = {path: ['command:x']}
            self.assertIn('is damaged', self.with_record(record).warnings[0], path)
        self.assertTrue(os.path.exists(os.path.join(self.base, 'victim')))

    def test_values_in_it_are_checked(self):
        for name, value in (('mode', '0999'), ('mode', 644), ('size', -1), ('size', 1.5),
                            ('size', True), ('time', 9000000001), ('sha256', 'AB'), ('run', None),
                            ('link', 'a\0b'), ('mode', '17777'), ('sha256', 'a' * 64 + '\n')):
            record = json.loads(json.dumps(self.good))
            record['files']['demo/b'][name] = value
            self.assertIn('is damaged', self.with_record(record).warnings[0], (name, value))

    def test_a_directory_in_it_that_leads_out_now_is_left_alone(self):
        outside = os.path.join(self.base, 'outside')
        os.rename(self.path('demo'), outside)
        os.symlink(outside, self.path('demo'))
        self.more = {'rootName': 'demo'}
        run = self.deploy(self.file('x', 'one', path='other/x'), prune=True)
        self.assertEqual(run.plan.left_overs, [])
        self.assertTrue(os.path.exists(os.path.join(outside, 'b')))

    def test_one_of_a_newer_format_is_left_alone(self):
        self.good['format'] = 2
        with self.assertRaises(part('run').Refused) as caught:
            self.with_record(self.good)
        self.assertEqual(caught.exception.status, 8)
        self.assertEqual(self.record()['format'], 2)

    def test_a_record_directory_that_leads_out_is_not_used(self):
        outside = os.path.join(self.base, 'outside')
        os.rename(self.path('.deployment-manager'), outside)
        os.symlink(outside, self.path('.deployment-manager'))
        before = os.listdir(outside)
        run = self.deploy(self.file('a', 'three'))
        self.assertIn('cannot remember', run.warnings[0])
        self.assertEqual(self.read('demo/a'), 'three')
        self.assertEqual(os.listdir(outside), before)


class HostileLists(unittest.TestCase):

    def test_what_is_no_list_is_refused(self):
        names = part('names')
        good = {'format': 1, 'project': 'p', 'platform': 'Linux64', 'configuration': 'Debug',
                'rootName': 'p', 'revision': '', 'tool': '', 'root': '/x', 'afterDeploy': '',
                'stateless': False, 'ignoresCase': False, 'files': [entry('a', 'one')]}
        read = part('list').read_list
        self.assertEqual(read(json.dumps(good).encode())['files'][0]['path'], 'demo/a')
        for name, value in (('format', 2), ('files', {}), ('stateless', 1), ('project', 1),
                            ('files', [1]), ('files', [dict(entry('a'), mode=0o7777)]),
                            ('files', [dict(entry('a'), operation='run')]),
                            ('files', [dict(entry('a'), sha256='')]),
                            ('files', [dict(entry('a'), steps=['rm'])]),
                            ('files', [dict(entry('a'), members=[{'kind': 'fifo'}])])):
            with self.assertRaises(names.InputError):
                read(json.dumps(dict(good, **{name: value})).encode())


if __name__ == '__main__':
    unittest.main()
