#!/usr/bin/python
# -*- coding: utf-8 -*-

from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r'''
---
module: deployment_files
short_description: Puts the files of a deployment in place
version_added: "1.0.0"
description:
  - Brings the files of an exported deployment below one directory of a machine, each one whole and
    with its rights and time stamp, and remembers what it put there.
  - A file that others changed on the machine since it was deployed is refused and left as it is,
    while the others are put in place. The task fails then, with the refused files in its message.
  - What is replaced or removed is kept on the machine, so that a run can be taken back.
  - The record, the lock and what is kept are those of C(deploymgr), which can deploy to the same
    place, verify it and take runs back.
options:
  root:
    description:
      - Directory of the machine below which everything is put. A full path, or one that begins with
        C(~/). It is made when it is not there.
    type: str
    required: true
  src:
    description:
      - Directory of the control node with the list of the files and the archive of their contents.
        A relative one is looked for below C(files) of the role. Contents travel only to machines
        that lack them.
    type: path
    default: deployment
  force:
    description: Copy also what is the same.
    type: bool
    default: false
  checksum:
    description: Compare contents instead of size and time.
    type: bool
    default: false
  skip_missing:
    description: Files that were missing when the list was made are skipped, and no failure.
    type: bool
    default: false
  overwrite_changed:
    description: Copy also over what others changed on the machine.
    type: bool
    default: false
  prune:
    description: Remove what was deployed and is not in the list any more.
    type: bool
    default: false
  break_lock:
    description: Go on though somebody else deploys there.
    type: bool
    default: false
  no_undo:
    description: Keep nothing on the machine to take the run back by.
    type: bool
    default: false
  undo_runs:
    description: How many runs can be taken back.
    type: int
    default: 3
  undo_bytes:
    description: How many bytes are kept on the machine to take runs back by, at most.
    type: int
    default: 1073741824
  report:
    description:
      - Which files the answer names. C(short) leaves out those that stay as they are, C(full) adds
        the whole document of the deploy.
    type: str
    choices: [short, full]
    default: short
  same_place:
    description:
      - Look only whether two machines of the play are one place, and fail then, since the two would
        meet in one lock. Nothing is asked of a machine.
    type: bool
    default: false
  list:
    description: The list, compressed. Told by the task itself.
    type: str
  contents:
    description: The archive of contents on the machine. Put there by the task itself.
    type: path
  by:
    description: The user who deploys, for the record. Found out by the task itself.
    type: str
    default: ""
  machine:
    description: The control node, for the record. Found out by the task itself.
    type: str
    default: ""
attributes:
  check_mode:
    support: full
    description: Nothing is changed, and what would be is told.
  diff_mode:
    support: full
    description: Texts are shown line by line, other contents by their hashes.
requirements:
  - Python 3.6 or newer on the machine
  - ansible-core 2.14 or newer on the control node
author:
  - Deployment Manager
'''

EXAMPLES = r'''
- name: Put the files in place
  deployment_files:
    root: /opt/demo

- name: Say what would change
  deployment_files:
    root: /opt/demo
  check_mode: true
  diff: true

- name: Put the files in place, whatever others did there, and remove what is gone from the list
  deployment_files:
    root: "~/demo"
    overwrite_changed: true
    prune: true
'''

RETURN = r'''
files:
  description: The files that did not stay as they are, or would not.
  returned: when the machine was looked at
  type: list
  elements: dict
  sample:
    - {localName: "bin\\demo", remoteFile: /opt/demo/demo, action: copied, bytes: 4096, error: "",
       state: new, reason: ""}
counts:
  description: How many files met which end.
  returned: when the machine was looked at
  type: dict
  sample: {copied: 1, unchanged: 12, kept: 0, skipped: 0, refused: 0, failed: 0}
refused:
  description: The files that others changed, which were left as they are.
  returned: when the machine was looked at
  type: list
  elements: dict
  sample: [{remoteFile: /opt/demo/a.ini, state: changed-there, reason: "it was changed"}]
left_overs:
  description: What was deployed and is not in the list any more.
  returned: when the machine was looked at
  type: list
  elements: dict
owed:
  description: Commands that still have to succeed on the machine.
  returned: when the machine was looked at
  type: list
  elements: dict
output:
  description: What commands printed.
  returned: when commands ran
  type: str
status:
  description: 0, 1 when something failed, 8 when the machine is not what was expected, 130 after an
    interrupt.
  returned: always
  type: int
document:
  description: The document of the deploy, as C(deploymgr deploy --json) prints it.
  returned: when I(report=full)
  type: dict
'''

import base64
import os
import select
import signal
import zlib

from ansible.module_utils.basic import AnsibleModule
from ansible.module_utils.deployment_answer import (
    counts_of, document_of, message_of, rows_of, status_of)
from ansible.module_utils.deployment_contents import ContentError, Contents
from ansible.module_utils.deployment_list import read_list
from ansible.module_utils.deployment_names import InputError
from ansible.module_utils.deployment_run import CANCELLED, FAILED, Deploy, Refused


class Interrupts:
    """Knows whether the run is to end: by a signal, or because nobody hears its answer any more."""

    def __init__(self):
        self._is_cancelled = False
        self._poll = select.poll()
        self._poll.register(1, 0)
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(number, self._cancel)

    def _cancel(self, unused_number, unused_frame):
        self._is_cancelled = True

    def __call__(self):
        if not self._is_cancelled:
            self._is_cancelled = bool(self._poll.poll(0))
        return self._is_cancelled


def arguments():
    """What the module takes."""
    return {'root': {'type': 'str', 'required': True},
            'src': {'type': 'path', 'default': 'deployment'},
            'force': {'type': 'bool', 'default': False},
            'checksum': {'type': 'bool', 'default': False},
            'skip_missing': {'type': 'bool', 'default': False},
            'overwrite_changed': {'type': 'bool', 'default': False},
            'prune': {'type': 'bool', 'default': False},
            'break_lock': {'type': 'bool', 'default': False},
            'no_undo': {'type': 'bool', 'default': False},
            'undo_runs': {'type': 'int', 'default': 3},
            'undo_bytes': {'type': 'int', 'default': 1073741824},
            'report': {'type': 'str', 'choices': ['short', 'full'], 'default': 'short'},
            'same_place': {'type': 'bool', 'default': False},
            # Nobody wants to read it in a log.
            'list': {'type': 'str', 'no_log': True}, 'contents': {'type': 'path'},
            'by': {'type': 'str', 'default': ''}, 'machine': {'type': 'str', 'default': ''}}


def full_root(text):
    """The root as a full path; "~/" is the home directory of the user on the machine."""
    return os.path.expanduser('~') + text[1:] if text == '~' or text.startswith('~/') else text


def answer_of(deploy, wanted, report):
    """The result of the task."""
    document = document_of(deploy, wanted)
    result = {'changed': deploy.changed, 'status': status_of(deploy),
              'msg': message_of(deploy), 'counts': counts_of(deploy),
              'refused': rows_of(deploy, 'refused'), 'left_overs': document['leftOvers'],
              'owed': document['owed'], 'output': ''.join(deploy.output),
              'files': [row for row in document['files']
                        if row['action'] not in ('unchanged', 'kept')]}
    if report == 'full':
        result['document'] = document
        del result['files']
    if deploy.diff:
        result['diff'] = deploy.diff
    return result


def main():
    """Runs on the machine."""
    module = AnsibleModule(argument_spec=arguments(), supports_check_mode=True)
    options = dict(module.params, check=module.check_mode, diff=module._diff)
    if not options['list']:
        module.fail_json(msg='there is no list; the task needs its action plugin, '
                             'action_plugins/deployment_files.py', status=FAILED)
    try:
        wanted = read_list(zlib.decompress(base64.b64decode(options['list'])))
        deploy = Deploy(full_root(options['root']), wanted, options,
                        Contents(options['contents']), Interrupts())
        deploy.run()
    except Refused as error:
        module.fail_json(msg=str(error), status=error.status)
    except (InputError, ContentError, ValueError, zlib.error, OSError) as error:
        module.fail_json(msg='the list of the files cannot be taken: %s' % error, status=FAILED)
    if deploy.needed:
        module.exit_json(changed=False, needed=deploy.needed, status=0)
    for warning in deploy.warnings:
        module.warn(warning)
    result = answer_of(deploy, wanted, options['report'])
    if result['status'] == CANCELLED:
        try:
            module.fail_json(**result)
        except (BrokenPipeError, ValueError):
            os._exit(1)
    if result['status']:
        module.fail_json(**result)
    module.exit_json(**result)


if __name__ == '__main__':
    main()
