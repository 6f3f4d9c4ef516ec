"""A machine in a temporary directory, and lists of files for it."""
import hashlib
import importlib
import json
import os
import sys
import tempfile
import types
import unittest
import zipfile

# From tests/workbench/deploy/fleet/ansible to what it tests.
TOP = os.path.abspath(os.path.join(os.path.dirname(__file__), *['..'] * 5))
SOURCE = os.path.join(TOP, 'workbench', 'deploy', 'fleet', 'ansible', 'roles',
                      'deployment')
MODULE_UTILS = os.path.join(SOURCE, 'module_utils')


def _stand_in(name, path):
    module = types.ModuleType(name)
    module.__path__ = [path]
    sys.modules[name] = module


# The parts of the module name each other as they do on a machine; nothing of the engine is needed.
_stand_in('ansible', SOURCE)
_stand_in('ansible.module_utils', MODULE_UTILS)


def part(name):
    """One part of the module."""
    return importlib.import_module('ansible.module_utils.deployment_' + name)


def sha256(text):
    return hashlib.sha256(text.encode()).hexdigest()


OPTIONS = {'force': False, 'checksum': False, 'skip_missing': False, 'overwrite_changed': False,
           'prune': False, 'break_lock': False, 'no_undo': False, 'undo_runs': 3,
           'undo_bytes': 1 << 30, 'check': False, 'diff': False, 'by': 'eva', 'machine': 'bench'}
TIME = 1700000000 * 1000000000  # nanoseconds


def entry(name, text='', **more):
    """A file of a list."""
    value = {'localName': name.replace('/', '\\'), 'class': 'File', 'path': 'demo/' + name,
             'link': '', 'problem': '', 'operation': 'copy', 'sha256': sha256(text),
             'size': len(text), 'mode': 0o644, 'time': TIME, 'overwrite': True, 'steps': [],
             'members': []}
    value.update(more)
    return value


def link(path, text):
    return entry(path, text, link=text, mode=0o777)


class MachineTest(unittest.TestCase):
    """A root that is not there yet, and contents by their texts."""

    def setUp(self):
        # Nothing here has to survive the machine, and a disk takes its time.
        memory = '/dev/shm'
        self._directory = tempfile.TemporaryDirectory(
            dir=memory if os.access(memory, os.W_OK) else None)
        self.addCleanup(self._directory.cleanup)
        self.base = os.path.realpath(self._directory.name)
        self.root = os.path.join(self.base, 'root')
        self.texts = {}
        self.more = {}  # what the list says besides

    def wanted(self, *entries):
        value = {'format': 1, 'project': 'demo', 'platform': 'Linux64', 'configuration': 'Debug',
                 'rootName': 'demo', 'revision': 'abc', 'tool': 'deployment-manager 1',
                 'root': '/opt/demo', 'afterDeploy': '', 'stateless': False, 'ignoresCase': False,
                 'files': list(entries)}
        value.update(self.more)
        return part('list').read_list(json.dumps(value).encode())

    def deploy(self, *entries, **options):
        """Runs a deploy; contents are those of the texts that the test has used."""
        cancelled = options.pop('cancelled', lambda: False)
        archive = os.path.join(self.base, 'contents.zip')
        with zipfile.ZipFile(archive, 'w') as file:
            for text in self.texts.values():
                file.writestr(sha256(text), text)
        contents = part('contents').Contents(archive)
        self.addCleanup(contents.close)
        run = part('run').Deploy(self.root, self.wanted(*entries), dict(OPTIONS, **options),
                                 contents, cancelled)
        run.run()
        return run

    def file(self, name, text, **more):
        """An entry whose content is in the archive."""
        self.texts[text] = text
        return entry(name, text, **more)

    def path(self, name):
        return os.path.join(self.root, name)

    def read(self, name):
        with open(self.path(name)) as stream:
            return stream.read()

    def write(self, name, text, time=None):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), 'w') as stream:
            stream.write(text)
        if time:
            os.utime(self.path(name), ns=(time, time))

    def record(self):
        return json.loads(self.read('.deployment-manager/demo/record.json'))

    def snapshot(self):
        """Everything below the base with its state, but times of directories and of access."""
        found = {}
        for directory, names, files in os.walk(self.base):
            for name in names + files:
                if name == 'contents.zip':
                    continue
                path = os.path.join(directory, name)
                status = os.lstat(path)
                is_file = name in files
                found[path] = (status.st_mode, is_file and status.st_mtime_ns,
                               is_file and status.st_size)
        return found

    @staticmethod
    def actions(run):
        return [row.action for row in run.plan.rows]

    @staticmethod
    def states(run):
        return [row.state for row in run.plan.rows]
