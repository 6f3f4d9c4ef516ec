# What is done on the machine when a file is there: it is run or unpacked, and its commands run.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import os
import shlex
import signal
import subprocess
import tempfile
import time

from ansible.module_utils.deployment_contents import ContentError
from ansible.module_utils.deployment_names import InputError, check_path, is_record_path
from ansible.module_utils.deployment_plan import step_text
from ansible.module_utils.deployment_tree import Interrupted, reason_of

PATIENCE = 0.02      # seconds between two looks at a command
END_PATIENCE = 2.0   # seconds for a command to end in order
MOST_OUTPUT = 16384  # bytes of what commands print


def run_command(command, directory, tree, output):
    """Runs a command line of the shell; what it prints is added to `output`. The reason when it
    failed. Raises Interrupted, with the command ended."""
    if '\0' in command:
        return 'has a NUL character'
    with tempfile.TemporaryFile() as printed:
        try:
            process = subprocess.Popen(['/bin/sh', '-c', command], cwd=directory or '/',
                                       stdin=subprocess.DEVNULL, stdout=printed,
                                       stderr=subprocess.STDOUT, start_new_session=True)
        except OSError as error:
            return 'cannot be run: ' + reason_of(error)
        try:
            while process.poll() is None:
                tree.stop_when_cancelled()
                time.sleep(PATIENCE)
        except Interrupted:
            _end(process)
            raise
        finally:
            printed.seek(0)
            output.append(printed.read(MOST_OUTPUT).decode('utf-8', 'replace'))
    if process.returncode < 0:
        return 'was ended by signal %d' % -process.returncode
    return 'ended with status %d' % process.returncode if process.returncode else ''


def _end(process):
    for number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, number)
            process.wait(END_PATIENCE)
            return
        except subprocess.TimeoutExpired:
            continue
        except ProcessLookupError:
            return


class Steps:
    """Does the steps of rows whose files are there."""

    def __init__(self, tree, contents, output):
        self._tree = tree
        self._contents = contents
        self._output = output

    def do(self, row, step):
        """The reason when a step failed, which begins with what was to be done."""
        start = 'was copied, but ' if row.action == 'copied' else 'is there, but '
        try:
            self._tree.stop_when_cancelled()
            if step == 'unpack':
                problem = self._unpack(row)
                return start + row.name + ' ' + problem if problem else ''
            command = shlex.quote('./' + row.name) if step == 'run' else step_text(step, row.name)
            problem = run_command(command, row.directory, self._tree, self._output)
            return '%s"%s" %s' % (start, step_text(step, row.name), problem) if problem else ''
        except Interrupted:
            return start + 'the run was interrupted'

    # The members of an archive were taken apart and checked where the list was made. What is on the
    # way to them here is another matter.

    def _unpack(self, row):
        try:
            places = [self._place(row, member) for member in row.entry['members']]
        except (InputError, OSError) as error:
            return 'cannot be unpacked: %s' % error
        try:
            for place, unused, unused_name in places:
                self._tree.handle(place, make=True)
            for place, name, member in places:
                if member['kind'] == 'file':
                    self._put(place, name, member)
            # Last, so that nothing is put in place through one of them.
            for place, name, member in places:
                if member['kind'] == 'link':
                    self._tree.stop_when_cancelled()
                    self._tree.make_link(place, name, member['link'])
        except (OSError, ContentError) as error:
            reason = reason_of(error) if isinstance(error, OSError) else str(error)
            return 'was unpacked in part: ' + reason
        return ''

    def _place(self, row, member):
        path = member['name']
        check_path(path)
        is_directory = member['kind'] == 'directory'
        inner, name = (path, '') if is_directory else path.rpartition('/')[::2]
        above = self._tree.relative(row.directory, '')[:-1] if row.directory else ''
        wanted = '/'.join(part for part in (above, inner) if part)
        place = self._tree.resolve(wanted)
        if place.problem:
            raise InputError('"%s" in it cannot go there: %s' % (path, place.problem))
        if not place.inside:
            raise InputError('"%s" in it cannot go there: it leads to %s, which is outside the '
                             'path of the profile' % (path, place.path))
        if is_record_path(self._tree.relative(place.path, name or '.')):
            raise InputError('"%s" in it leads to where deploys keep what they remember' % path)
        if not is_directory:
            self._check_file(row, member, place, name, wanted)
        return place.path, name, member

    def _check_file(self, row, member, place, name, wanted):
        path = member['name']
        if place.path + '/' + name == row.remote_file:
            raise InputError('"%s" in it has the place of the archive itself' % path)
        # Climbing in a link is counted from where it stands in the archive.
        if member['kind'] == 'link' and self._tree.relative(place.path, '')[:-1] != wanted:
            raise InputError('"%s" in it cannot go there: a link of the target stands on the way'
                             % path)
        if os.path.isdir(place.path + '/' + name) and not os.path.islink(place.path + '/' + name):
            raise InputError('"%s" in it cannot go there: a directory has its name' % path)

    def _put(self, place, name, member):
        file = self._tree.begin(place)
        try:
            self._contents.write(member['sha256'], file, self._tree)
            file.stamp(member['mode'], member['time'])
            file.complete()
            file.put_in_place(name)
        finally:
            file.close()
