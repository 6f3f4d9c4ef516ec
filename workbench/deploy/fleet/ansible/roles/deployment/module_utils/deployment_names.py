# Names of files on a machine: which are taken, and which deploys keep for themselves.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import os
import socket

RECORD_DIRECTORY = '.deployment-manager'
UNFINISHED_PREFIX = '.deploymgr-'
UNFINISHED_SUFFIX = '.part'
LONGEST_NAME = 255   # bytes; what common file systems hold
LONGEST_PATH = 4095  # bytes


class InputError(Exception):
    """What was read is not what it should be; the text says why."""


def is_unfinished(name):
    """True for the name of a file that a deploy has not finished."""
    return (len(name) > len(UNFINISHED_PREFIX) + len(UNFINISHED_SUFFIX)
            and name.startswith(UNFINISHED_PREFIX) and name.endswith(UNFINISHED_SUFFIX))


def part_problem(part):
    """Why no file can have the name; empty when one can."""
    if '\0' in part:
        return 'has a NUL character'
    try:
        size = len(part.encode('utf-8'))
    except UnicodeEncodeError:
        return 'is no text'
    if size > LONGEST_NAME:
        return 'is longer than %d bytes' % LONGEST_NAME
    if is_unfinished(part):
        return 'is kept for files that are not whole yet'
    return ''


def is_record_path(path):
    """True for a relative path that leads to what deploys keep for themselves."""
    return path.split('/', 1)[0].upper() == RECORD_DIRECTORY.upper()


def path_problem(path):
    """Why a path below the root is none that a deploy writes; empty when it is one."""
    subject = 'its remote path "%s" ' % path
    if path[:1] in ('/', '\\', '~') or (path[1:2] == ':' and path[:1].isalpha()):
        return subject + 'leaves the path of the profile'
    if '\\' in path:
        return '"%s" is no path of a file' % path
    for part in path.split('/'):
        if part == '..':
            return subject + 'leaves the path of the profile'
        if part in ('', '.'):
            return '"%s" is no path of a file' % path
        problem = part_problem(part)
        if problem:
            return '"%s" in its remote path %s' % (part, problem)
    if len(path.encode('utf-8')) > LONGEST_PATH:
        return 'its remote path is longer than %d bytes' % LONGEST_PATH
    if is_record_path(path):
        return subject + 'leads to where deploys keep what they remember'
    return ''


def check_path(path):
    """Raises InputError for a path that no deploy wrote."""
    problem = path_problem(path)
    if problem:
        raise InputError(problem)


def record_directory_of(root_name):
    """The directory of a project's record below the root; the name is taken as it is stored."""
    name = root_name.rstrip('/\\')
    name = ''.join('_' if c in '/\\:' else c for c in name)
    if name in ('', '.', '..'):
        name += '_'
    return RECORD_DIRECTORY + '/' + name


def text_mark(text):
    """A text of 16 digits that stands for another one."""
    mark = 0xcbf29ce484222325
    for byte in text.encode('utf-8', 'surrogateescape'):
        mark = ((mark ^ byte) * 0x100000001b3) & 0xffffffffffffffff
    return '%016x' % mark


def machine_mark():
    """Stands for this machine since it was started: process numbers start over then."""
    text = ''
    for name in ('/etc/machine-id', '/proc/sys/kernel/random/boot_id'):
        line = ''
        try:
            with open(name, encoding='utf-8', errors='surrogateescape') as stream:
                line = stream.read().lstrip().split('\n', 1)[0]
        except OSError:
            pass
        text += line + '\n'
    try:
        processes = os.readlink('/proc/self/ns/pid')  # a container counts by itself
    except OSError:
        processes = ''
    return text_mark(text + socket.gethostname() + processes)
