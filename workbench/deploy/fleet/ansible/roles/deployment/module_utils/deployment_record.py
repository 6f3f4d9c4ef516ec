# What deploys remember on a machine: the record, and what they are taken back by. Whatever is read
# is input from outside, and is checked as such.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import json
import re
import time

from ansible.module_utils.deployment_names import InputError, check_path

FORMAT = 1
MOST_RUNS = 20
LARGEST_RECORD = 64 * 1024 * 1024  # bytes
MOST_TIME = 9000000000             # seconds; more nanoseconds are not counted
MOST_SIZE = (1 << 64) - 1
LONGEST_LINK = 4095
RESULTS = ('done', 'partly', 'undone')
UNDO_KINDS = ('remove', 'restore', 'link', 'touch')


def utc_text(seconds=None):
    """Such as "2026-11-22T00:31:21Z"."""
    return time.strftime('%Y-%m-%dT%H:%M:%SZ', time.gmtime(seconds))


def mode_text(mode):
    """Rights as a record has them, such as "0644"."""
    return '%04o' % mode


def mode_of(text):
    """The rights that a text says."""
    if not re.match(r'[0-7]{1,5}\Z', text) or int(text, 8) > 0o7777:
        raise InputError('"%s" is no mode' % text)
    return int(text, 8)


def _members(pairs):
    members = dict(pairs)
    if len(members) != len(pairs):
        raise InputError('an object has a member twice')
    return members


def _no_constant(name):
    raise InputError('"%s" is no number' % name)


def parse_json(data):
    """The value that the bytes say. Raises InputError for what is no JSON."""
    try:
        text = data.decode('utf-8')
        value = json.loads(text, object_pairs_hook=_members, parse_constant=_no_constant)
        if re.search(r'\\u[dD][89a-fA-F]', text):
            json.dumps(value, ensure_ascii=False).encode('utf-8')  # halves of letters
        return value
    except (ValueError, RecursionError) as error:
        raise InputError(str(error))


def json_bytes(value, indent):
    """The text of a document as it is kept."""
    return (json.dumps(value, indent=indent, ensure_ascii=False) + '\n').encode('utf-8')


def text_in(value, name):
    """A member that is a text."""
    if not isinstance(value, dict) or not isinstance(value.get(name), str):
        raise InputError('"%s" is missing, or no text' % name)
    return value[name]


def number_in(value, name, least=0, most=MOST_SIZE):
    """A member that is a whole number from `least` to `most`."""
    number = value.get(name) if isinstance(value, dict) else None
    if isinstance(number, bool) or not isinstance(number, int) or not least <= number <= most:
        raise InputError('"%s" is missing, or no number that it can be' % name)
    return number


def object_in(value, name):
    """A member that is an object."""
    if not isinstance(value, dict) or not isinstance(value.get(name), dict):
        raise InputError('"%s" is missing, or no object' % name)
    return value[name]


def array_in(value, name):
    """A member that is an array."""
    if not isinstance(value, dict) or not isinstance(value.get(name), list):
        raise InputError('"%s" is missing, or no array' % name)
    return value[name]


def texts_of(value, name):
    """A value that is an array of texts."""
    if not isinstance(value, list) or not all(isinstance(text, str) for text in value):
        raise InputError('"%s" is no array of texts' % name)
    return value


def _hash_in(value):
    text = text_in(value, 'sha256')
    if not re.match(r'[0-9a-f]{64}\Z', text):
        raise InputError('"%s" is no hash' % text)
    return text


def _optional_text(value, name, absent):
    return text_in(value, name) if name in value else absent


def recorded_file_of(value, record):
    """An entry of a file; what it does not say of its target is said by the record."""
    file = {'localName': text_in(value, 'localName'), 'class': text_in(value, 'class'),
            'size': number_in(value, 'size'), 'time': number_in(value, 'time', 0, MOST_TIME),
            'sha256': _hash_in(value), 'mode': mode_of(text_in(value, 'mode')),
            'run': text_in(value, 'run'), 'link': _optional_text(value, 'link', ''),
            'platform': _optional_text(value, 'platform', record['platform']),
            'configuration': _optional_text(value, 'configuration', record['configuration'])}
    if '\0' in file['link'] or len(file['link'].encode('utf-8')) > LONGEST_LINK:
        raise InputError('"%s" is no text of a link' % file['link'][:LONGEST_LINK])
    return file


def recorded_file_json(file, record):
    """The entry as it is kept: a file of the record's own target does not name it."""
    value = {'localName': file['localName'], 'class': file['class'], 'size': file['size'],
             'time': max(file['time'], 0), 'sha256': file['sha256'],
             'mode': mode_text(file['mode']), 'run': file['run']}
    if file['link']:
        value['link'] = file['link']
    for name in ('platform', 'configuration'):
        if file[name] != record[name]:
            value[name] = file[name]
    return value


def run_of(value):
    """One run of a record."""
    run = {name: text_in(value, name)
           for name in ('id', 'at', 'by', 'machine', 'revision', 'tool')}
    for name in ('copied', 'removed', 'failed'):
        run[name] = number_in(value, name)
    run['result'] = text_in(value, 'result')
    if run['result'] not in RESULTS:
        raise InputError('"%s" is no result of a run' % run['result'])
    return run


def empty_record():
    """The record of a machine that was never deployed to."""
    return {'project': '', 'platform': '', 'configuration': '', 'runs': [], 'files': {},
            'owed': {}, 'owedAfterDeploy': ''}


def parse_record(data):
    """Takes a record apart: ("read", record, ""), ("newer", ...), or ("damaged", ..., why)."""
    try:
        document = parse_json(data)
        if number_in(document, 'format', 1) > FORMAT:
            return 'newer', empty_record(), ''
        return 'read', _record_of(document), ''
    except InputError as error:
        return 'damaged', empty_record(), str(error)


def _record_of(document):
    record = empty_record()
    for name in ('project', 'platform', 'configuration'):
        record[name] = text_in(document, name)
    record['runs'] = [run_of(run) for run in array_in(document, 'runs')][:MOST_RUNS]
    for path, file in object_in(document, 'files').items():
        check_path(path)
        record['files'][path] = recorded_file_of(file, record)
    if 'owed' in document:
        for path, steps in object_in(document, 'owed').items():
            check_path(path)
            record['owed'][path] = texts_of(steps, path)
    record['owedAfterDeploy'] = _optional_text(document, 'owedAfterDeploy', '')
    return record


def _sorted(table):
    return sorted(table, key=lambda path: path.encode('utf-8'))


def record_bytes(record):
    """The record as it is kept."""
    document = {'format': FORMAT, 'project': record['project'], 'platform': record['platform'],
                'configuration': record['configuration'], 'runs': record['runs'][:MOST_RUNS],
                'files': {path: recorded_file_json(record['files'][path], record)
                          for path in _sorted(record['files'])}}
    if record['owed']:
        document['owed'] = {path: record['owed'][path] for path in _sorted(record['owed'])}
    if record['owedAfterDeploy']:
        document['owedAfterDeploy'] = record['owedAfterDeploy']
    return json_bytes(document, 1)


_NO_TARGET = {'platform': '', 'configuration': ''}


def undo_manifest_bytes(manifest):
    """What a run is taken back by, as it is kept."""
    files = []
    for file in manifest['files']:
        value = {'kind': file['kind'], 'path': file['path'], 'put': file['put']}
        if file['kind'] != 'remove':
            value['before'] = file['before']
            value['mode'] = mode_text(file['mode'])
        for name in ('kept', 'link', 'putLink'):
            if file.get(name):
                value[name] = file[name]
        if file.get('recorded'):
            value['recorded'] = recorded_file_json(file['recorded'], _NO_TARGET)
        if file.get('owed'):
            value['owed'] = file['owed']
        files.append(value)
    return json_bytes({'format': FORMAT, 'run': manifest['run'], 'files': files,
                       'directories': manifest['directories']}, 0)


def kept_names_of(data):
    """The names of what was kept, by a manifest."""
    document = parse_json(data)
    if number_in(document, 'format', 1) > FORMAT:
        raise InputError('it is of a newer version of this program')
    names = []
    for file in array_in(document, 'files'):
        name = _optional_text(file, 'kept', '') if isinstance(file, dict) else ''
        if not re.match(r'[0-9]*\Z', name):
            raise InputError('"%s" is no name of a kept file' % name)
        if name:
            names.append(name)
    return names


def undo_index_bytes(index):
    """The runs that can be taken back, newest first, as they are kept."""
    document = {'format': FORMAT, 'runs': index['runs']}
    if index['unfinished']:
        document['unfinished'] = index['unfinished']
    return json_bytes(document, 1)


def _run_id(text):
    if not re.match(r'[0-9A-Za-z-]{1,64}\Z', text):
        raise InputError('"%s" is no run' % text)
    return text


def parse_undo_index(data):
    """The runs that can be taken back, and those that are being kept or removed; none where nothing
    of the kind can be read."""
    try:
        document = parse_json(data)
        if number_in(document, 'format', 1) > FORMAT:
            raise InputError('it is of a newer version of this program')
        runs = [{'id': _run_id(text_in(run, 'id')), 'bytes': number_in(run, 'bytes')}
                for run in array_in(document, 'runs')]
        unfinished = texts_of(document.get('unfinished', []), 'unfinished')
        return {'runs': runs, 'unfinished': [_run_id(run) for run in unfinished]}
    except InputError:
        return {'runs': [], 'unfinished': []}
