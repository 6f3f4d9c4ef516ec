# Tells deploymgr how a play goes on: a line for each thing that happens, and what a machine answered
# in a file of its own.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import json
import os
import sys

from ansible.plugins.callback import CallbackBase

DOCUMENTATION = '''
    name: deployment_lines
    type: stdout
    short_description: Lines for deploymgr
    description:
      - Prints one line for each event of a play, and keeps the answers of machines in files.
    options: {}
'''

MARK = '@deployment '
DIRECTORY = 'DEPLOYMENT_FLEET_ANSWERS'


class CallbackModule(CallbackBase):
    """Hears the play."""

    CALLBACK_VERSION = 2.0
    CALLBACK_TYPE = 'stdout'
    CALLBACK_NAME = 'deployment_lines'

    def __init__(self, *args, **kwargs):
        super(CallbackModule, self).__init__(*args, **kwargs)
        self._directory = os.environ[DIRECTORY]
        self._count = 0

    def _say(self, event, **more):
        sys.stdout.write(MARK + json.dumps(dict(more, event=event)) + '\n')
        sys.stdout.flush()

    def _keep(self, event, result):
        self._count += 1
        name = '%d.json' % self._count
        with open(os.path.join(self._directory, name), 'w', encoding='utf-8') as stream:
            json.dump(result._result, stream, default=str)
        self._say(event, machine=result._host.get_name(), file=name)

    def v2_playbook_on_play_start(self, play):
        inventory = play.get_variable_manager()._inventory
        for host in inventory.get_hosts(play.hosts):
            self._say('machine', machine=host.get_name())

    def v2_playbook_on_no_hosts_matched(self):
        self._say('nobody')

    def v2_runner_on_ok(self, result):
        if result._task.args.get('same_place') is not True:
            self._keep('ok', result)

    def v2_runner_on_failed(self, result, ignore_errors=False):
        self._keep('failed', result)

    def v2_runner_on_unreachable(self, result):
        self._keep('unreachable', result)
