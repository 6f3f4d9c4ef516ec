# The list of the files, as an export writes it.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import re

from ansible.module_utils.deployment_names import InputError
from ansible.module_utils.deployment_record import (
    array_in, number_in, parse_json, text_in, texts_of)

FORMAT = 1
MOST_TIME = (1 << 63) - 1  # nanoseconds
OPERATIONS = ('copy', 'remove', 'runAndRemove')
KINDS = ('file', 'directory', 'link')
TEXTS = ('project', 'platform', 'configuration', 'rootName', 'revision', 'tool', 'root',
         'afterDeploy')


def _boolean_in(value, name):
    if not isinstance(value, dict) or not isinstance(value.get(name), bool):
        raise InputError('"%s" is missing, or neither true nor false' % name)
    return value[name]


def _word_in(value, name, words):
    if text_in(value, name) not in words:
        raise InputError('"%s" is no %s' % (value[name], name))
    return value[name]


def _hash_in(value):
    if not re.match(r'([0-9a-f]{64})?\Z', text_in(value, 'sha256')):
        raise InputError('"%s" is no hash' % value['sha256'])
    return value['sha256']


def _member_of(value):
    member = {'kind': _word_in(value, 'kind', KINDS), 'name': text_in(value, 'name')}
    if member['kind'] == 'file':
        member.update(sha256=_hash_in(value), mode=number_in(value, 'mode', 0, 0o777),
                      time=number_in(value, 'time', -MOST_TIME, MOST_TIME))
    if member['kind'] == 'link':
        member['link'] = text_in(value, 'link')
    return member


def _entry_of(value):
    entry = {name: text_in(value, name)
             for name in ('localName', 'class', 'path', 'link', 'problem')}
    entry.update(operation=_word_in(value, 'operation', OPERATIONS), sha256=_hash_in(value),
                 size=number_in(value, 'size'), mode=number_in(value, 'mode', 0, 0o777),
                 time=number_in(value, 'time', -MOST_TIME, MOST_TIME),
                 overwrite=_boolean_in(value, 'overwrite'),
                 steps=texts_of(value.get('steps'), 'steps'),
                 members=[_member_of(member) for member in array_in(value, 'members')])
    if entry['operation'] != 'remove' and not entry['problem'] and not entry['sha256']:
        raise InputError('"%s" has no hash' % entry['path'])
    for step in entry['steps']:
        if step not in ('run', 'unpack') and not step.startswith('command:'):
            raise InputError('"%s" is nothing that is done with a file' % step)
    return entry


def read_list(data):
    """Takes the list apart. Raises InputError for what is none."""
    document = parse_json(data)
    if number_in(document, 'format', 1) > FORMAT:
        raise InputError('it is of a newer version')
    wanted = {name: text_in(document, name) for name in TEXTS}
    wanted.update(stateless=_boolean_in(document, 'stateless'),
                  ignoresCase=_boolean_in(document, 'ignoresCase'),
                  files=[_entry_of(value) for value in array_in(document, 'files')])
    return wanted
