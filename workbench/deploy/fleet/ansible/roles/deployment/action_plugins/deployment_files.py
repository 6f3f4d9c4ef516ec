# Runs on the control node: tells a machine the list, and brings those contents that it lacks.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import base64
import json
import os
import posixpath
import pwd
import shutil
import socket
import tempfile
import zipfile
import zlib

from ansible.errors import AnsibleActionFail, AnsibleError
from ansible.module_utils.parsing.convert_bool import boolean
from ansible.plugins.action import ActionBase
from ansible.release import __version__ as ansible_version

LIST = 'list.json'
ARCHIVE = 'contents.zip'
LEAST_ANSIBLE = (2, 14)
MOST_ROUNDS = 3  # the machine may change between two looks
FAILED = 1


def _first(variables, names, absent):
    for name in names:
        if variables.get(name) is not None:
            return variables[name]
    return absent


def place_of(name, variables, default_root):
    """What tells one place from another, as far as the inventory says it."""
    connection = str(variables.get('ansible_connection', 'ssh')).rpartition('.')[2]
    if connection in ('smart', 'paramiko', 'paramiko_ssh'):
        connection = 'ssh'
    root = str(variables.get('deployment_root', default_root))
    if root.startswith('/'):
        root = posixpath.normpath('/' + root.lstrip('/'))
        user = ''
    else:
        root = posixpath.normpath(root)
        user = str(_first(variables, ('ansible_user', 'ansible_ssh_user'), ''))
    if connection == 'local':
        return ('local', '', '', user, root)
    host = str(_first(variables, ('ansible_host', 'ansible_ssh_host'), name)).lower()
    port = str(_first(variables, ('ansible_port', 'ansible_ssh_port'), 22))
    return (connection, host, port, user, root)


def user_name():
    """The user who deploys."""
    try:
        return pwd.getpwuid(os.geteuid()).pw_name
    except KeyError:
        return str(os.geteuid())


def same_places(machines):
    """Pairs of names that are one place; `machines` are pairs of a name and its place."""
    first, twice = {}, []
    for name, place in machines:
        other = first.setdefault(place, name)
        if other != name:
            twice.append((other, name))
    return twice


class ActionModule(ActionBase):
    """The task deployment_files."""

    # What travels goes to a directory that is made when something has to travel.
    TRANSFERS_FILES = False

    def run(self, tmp=None, task_vars=None):
        """The answer of the machine."""
        result = super(ActionModule, self).run(tmp, task_vars)
        if tuple(int(part) for part in ansible_version.split('.')[:2]) < LEAST_ANSIBLE:
            raise AnsibleActionFail('ansible-core 2.14 or newer is needed; this is '
                                    + ansible_version)
        arguments = dict(self._task.args)
        source = self._source(arguments.pop('src', 'deployment'))
        same_place = boolean(arguments.pop('same_place', False))
        text = self._read_list(source)
        if same_place:
            result.update(self._check_places(json.loads(text), task_vars))
            return result
        packed = base64.b64encode(zlib.compress(text)).decode()
        arguments.update(list=packed, by=user_name(), machine=socket.gethostname())
        result.update(self._deploy(source, arguments, task_vars))
        return result

    def _source(self, source):
        try:
            return self._find_needle('files', source)
        except AnsibleError as error:
            raise AnsibleActionFail('the folder of the deployment is not there: %s' % error)

    @staticmethod
    def _read_list(source):
        try:
            with open(os.path.join(source, LIST), 'rb') as stream:
                return stream.read()
        except OSError as error:
            raise AnsibleActionFail('the list of the files cannot be read: %s' % error)

    @staticmethod
    def _check_places(wanted, task_vars):
        machines = [(name, place_of(name, task_vars['hostvars'][name], wanted['root']))
                    for name in task_vars['ansible_play_hosts_all']]
        twice = same_places(machines)
        if not twice:
            return {'changed': False}
        pairs = '; '.join('%s and %s' % pair for pair in twice)
        return {'failed': True, 'same_places': twice,
                'msg': 'the inventory names one place twice, where the two would meet in one lock: '
                       + pairs}

    def _deploy(self, source, arguments, task_vars):
        answer = self._ask(arguments, task_vars)
        for unused in range(MOST_ROUNDS):
            if not answer.get('needed'):
                return answer
            # The directory goes when the task is over.
            if self._connection._shell.tmpdir is None:
                self._make_tmp_path()
            arguments['contents'] = self._bring_contents(source, answer['needed'])
            answer = self._ask(arguments, task_vars)
        if answer.get('needed'):
            return {'failed': True, 'status': FAILED,
                    'msg': 'the machine changes all the time, or the archive lacks contents'}
        return answer

    def _ask(self, arguments, task_vars):
        answer = self._execute_module(module_name='deployment_files', module_args=arguments,
                                      task_vars=task_vars)
        # What travelled is nothing for people.
        answer.pop('invocation', None)
        return answer

    def _bring(self, file, name):
        remote = self._connection._shell.join_path(self._connection._shell.tmpdir, name)
        self._transfer_file(file, remote)
        self._fixup_perms2((self._connection._shell.tmpdir, remote))
        return remote

    def _bring_contents(self, source, needed):
        """Of the archive that part which the machine lacks."""
        whole = os.path.join(source, ARCHIVE)
        part = ''
        try:
            with zipfile.ZipFile(whole) as archive:
                names = set(archive.namelist())
                wanted = [name for name in needed if name in names]
                if set(wanted) == names:
                    return self._bring(whole, ARCHIVE)
                handle, part = tempfile.mkstemp(suffix='.zip')
                with os.fdopen(handle, 'wb') as stream:
                    self._copy_members(archive, wanted, stream)
            return self._bring(part, ARCHIVE)
        except (OSError, zipfile.BadZipFile) as error:
            raise AnsibleActionFail('the archive of the contents cannot be read: %s' % error)
        finally:
            if part:
                os.unlink(part)

    @staticmethod
    def _copy_members(archive, names, stream):
        with zipfile.ZipFile(stream, 'w', zipfile.ZIP_DEFLATED, allowZip64=True) as part:
            for name in names:
                with archive.open(name) as member, part.open(name, 'w',
                                                             force_zip64=True) as copy:
                    shutil.copyfileobj(member, copy)
