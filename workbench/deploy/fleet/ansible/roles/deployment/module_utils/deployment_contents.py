# The contents that came with a deploy, by their hashes.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import hashlib
import zipfile
import zlib

from ansible.module_utils.deployment_tree import BLOCK

LARGEST_SHOWN = 64 * 1024  # bytes of a file that a difference shows
MOST_SHOWN = 500           # files


class ContentError(Exception):
    """A content is not what the list says."""


class Contents:
    """An archive whose members are named by the hash of what they are."""

    def __init__(self, path=None):
        """Raises ContentError for a file that is no such archive."""
        self._archive = None
        self._names = set()
        if not path:
            return
        try:
            self._archive = zipfile.ZipFile(path)
        except (OSError, zipfile.BadZipFile) as error:
            raise ContentError('the archive of the contents cannot be read: %s' % error)
        self._names = set(self._archive.namelist())

    def __contains__(self, name):
        return name in self._names

    def close(self):
        if self._archive:
            self._archive.close()

    def write(self, name, file, tree):
        """Writes a content into an unfinished file. Raises ContentError and OSError."""
        digest = hashlib.sha256()
        try:
            with self._archive.open(name) as stream:
                for block in iter(lambda: stream.read(BLOCK), b''):
                    tree.stop_when_cancelled()
                    digest.update(block)
                    file.write(block)
        except (KeyError, zipfile.BadZipFile, zlib.error, EOFError, RuntimeError) as error:
            raise ContentError('its content cannot be read: %s' % error)
        if digest.hexdigest() != name:
            raise ContentError('its content is not what the list says')

    def text(self, entry):
        """The text of an entry for people; one line about it where it is none."""
        if entry['link']:
            return '-> %s\n' % entry['link']
        if entry['size'] > LARGEST_SHOWN or entry['sha256'] not in self:
            return _about(entry['size'], entry['sha256'])
        with self._archive.open(entry['sha256']) as stream:
            return _text_of(stream.read(LARGEST_SHOWN), entry['sha256'])


def _about(size, name):
    return '(%d bytes%s)\n' % (size, ', SHA-256 ' + name if name else '')


def _text_of(data, name=''):
    try:
        text = data.decode('utf-8')
        if '\0' not in text:
            return text
    except UnicodeDecodeError:
        pass
    return _about(len(data), name or hashlib.sha256(data).hexdigest())


def shown_contents(plan):
    """The hashes of the contents that a difference shows."""
    rows = [row for row in plan.rows if row.action == 'copied'][:MOST_SHOWN]
    return {row.entry['sha256'] for row in rows
            if not row.entry['link'] and row.entry['size'] <= LARGEST_SHOWN}


def differences(plan, tree, contents):
    """What the plan changes, as Ansible shows it."""
    result = []
    for row in plan.rows:
        if row.action not in ('copied', 'removed', 'mode') or len(result) == MOST_SHOWN:
            continue
        before = _there(row, tree)
        if row.action == 'mode':
            mode = row.there.st_mode & 0o777
            before, after = 'mode: %04o\n' % mode, 'mode: %04o\n' % row.entry['mode']
        else:
            after = contents.text(row.entry) if row.action == 'copied' else ''
        result.append({'before_header': row.remote_file if row.there else '(absent)',
                       'after_header': '(absent)' if row.action == 'removed' else row.remote_file,
                       'before': before, 'after': after})
    return result


def _there(row, tree):
    if not row.there:
        return ''
    if row.link_there:
        return '-> %s\n' % row.link_there
    if row.there.st_size > LARGEST_SHOWN:
        return _about(row.there.st_size, tree.hash_of(row.directory, row.name))
    try:
        return _text_of(tree.read(row.directory, row.name, LARGEST_SHOWN) or b'')
    except OSError:
        return _about(row.there.st_size, '')
