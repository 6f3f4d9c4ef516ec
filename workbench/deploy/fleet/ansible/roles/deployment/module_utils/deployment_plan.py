# How the files of the list, what was deployed last and what is there now stand to each other, and
# what is to be done about it.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import stat

from ansible.module_utils.deployment_names import is_record_path, path_problem
from ansible.module_utils.deployment_tree import reason_of

SECOND = 1000000000  # nanoseconds
CHANGED_THERE = 'it was changed on the target since it was deployed'
CHANGED_BOTH = CHANGED_THERE + ', and here, too'
LEFT_OVER_CHANGED = ('it is not in the list any more, and was changed on the target since it was '
                     'deployed')


class Row:
    """One file: what it is to be, what stands at its place, and what is done about it."""

    def __init__(self, entry):
        self.entry = entry       # of the list; nothing for a left-over
        self.local_name = entry['localName'] if entry else ''
        self.directory = ''      # resolved
        self.name = ''
        self.path = ''           # as the record has it
        self.there = None        # its state on the machine
        self.link_there = ''
        self.hash_there = ''
        self.state = None
        self.action = 'copied'
        self.error = ''
        self.reason = ''
        self.steps = []
        self.bytes = 0

    @property
    def remote_file(self):
        return self.directory + '/' + self.name

    @property
    def operation(self):
        return self.entry['operation'] if self.entry else 'remove'

    def json(self):
        """The row as documents have it."""
        value = {'localName': self.local_name, 'remoteFile': self.remote_file,
                 'action': self.action, 'bytes': self.bytes, 'error': self.error,
                 'state': self.state, 'reason': self.reason}
        if self.entry and self.entry['link']:
            value['link'] = self.entry['link']
        return value


def owed_steps(steps, owed):
    """Those of the steps that are owed. One that is owed and none of the entry any more was mended
    since: all of them are to be done then."""
    if not owed:
        return []
    if any(step not in steps for step in owed):
        return list(steps)
    return [step for step in steps if step in owed]


class Plan:
    """What a deploy does on this machine. Nothing is changed by making it."""

    def __init__(self, tree, wanted, record, options):
        self._tree = tree
        self._wanted = wanted
        self._record = record
        self._options = options
        self.rows = []
        self.left_overs = []   # rows of the record's
        self.forgotten = []    # recorded, and there no more
        self.problems = []
        self.warnings = []
        self.after_deploy = ''
        self._fold = (lambda text: text.upper()) if wanted['ignoresCase'] else (lambda text: text)
        self._recorded = {self._fold(path): file for path, file in record['files'].items()}

    def make(self):
        self.rows = [Row(entry) for entry in self._wanted['files']]
        self._find_places()
        if not self.problems:
            self._examine()
        if self.problems:
            return
        for row in self.rows:
            if row.operation != 'remove' and row.state != 'missing-here':
                self._decide(row)
        self._find_left_overs()
        changes = any(row.action in ('copied', 'removed', 'mode') for row in self.rows)
        if changes or self._record['owedAfterDeploy']:
            self.after_deploy = self._wanted['afterDeploy']

    def _refuse_all(self, row, reason):
        self.problems.append('"%s": %s' % (row.local_name, reason))

    def _find_places(self):
        places = {}
        for row in self.rows:
            path = row.entry['path']
            problem = path_problem(path)
            if problem:
                self._refuse_all(row, problem)
                continue
            directory, row.name = path.rpartition('/')[::2]
            if directory not in places:
                places[directory] = self._tree.resolve(directory)
            place = places[directory]
            row.directory = place.path
            row.path = self._tree.relative(place.path, row.name)
            if place.problem:
                self._refuse_all(row, 'it cannot go to "%s": %s' % (path, place.problem))
            elif not place.inside:
                self._refuse_all(row, 'it cannot go to "%s": it leads to %s, which is outside the '
                                 'path of the profile' % (path, place.path))
            elif is_record_path(row.path):
                self._refuse_all(row, '"%s" leads to where deploys keep what they remember' % path)
        self._find_collisions()

    def _find_collisions(self):
        by_path = {}
        for row in self.rows:
            other = by_path.setdefault(self._fold(row.remote_file), row)
            if other is not row and row.name:
                self._refuse_all(row, 'it lands on %s, and so does "%s"'
                                 % (row.remote_file, other.local_name))
        known = set()
        for row in self.rows:
            directory = self._fold(row.directory)
            while len(directory) > 1 and directory not in known:
                known.add(directory)
                if directory in by_path:
                    self._refuse_all(by_path[directory], 'it lands on %s, which is a directory for '
                                     '"%s"' % (by_path[directory].remote_file, row.local_name))
                directory = directory.rpartition('/')[0]

    def _look(self, row):
        try:
            row.there = self._tree.examine(row.directory, row.name)
        except FileNotFoundError:
            row.there = None
        if row.there and stat.S_ISLNK(row.there.st_mode):
            row.link_there = self._tree.read_link(row.directory, row.name)

    def _examine(self):
        for row in self.rows:
            try:
                self._look(row)
            except OSError as error:
                self._refuse_all(row, '%s cannot be examined: %s'
                                 % (row.remote_file, reason_of(error)))
                continue
            if row.there and stat.S_ISDIR(row.there.st_mode):
                self._refuse_all(row, 'it lands on %s, which is a directory on the target'
                                 % row.remote_file)
            elif row.operation == 'remove':
                row.action = 'removed' if row.there else 'unchanged'
            elif row.entry['problem']:
                row.state = 'missing-here'
                row.action = 'skipped' if self._options['skip_missing'] else 'failed'
                row.error = '' if self._options['skip_missing'] else row.entry['problem']

    # What is known of a content there decides where it can; the hash is asked for once.

    def _hash_there(self, row):
        if not row.hash_there:
            row.hash_there = self._tree.hash_of(row.directory, row.name)
        return row.hash_there

    def _same_time(self, here, there):
        step = self._tree.step
        # Some ways to the machine keep whole seconds only.
        if here % SECOND == 0 or there % SECOND == 0:
            step = max(step, SECOND)
        return here // step == there // step

    def _is_as_here(self, row):
        entry = row.entry
        if entry['link'] or row.link_there:
            return entry['link'] == row.link_there
        if not stat.S_ISREG(row.there.st_mode) or row.there.st_size != entry['size']:
            return False
        file = self.recorded(row)
        # Two contents may have one size and one time; the hashes that are known say so.
        is_known_other = file and file['sha256'] != entry['sha256']
        if (not self._options['checksum'] and not is_known_other
                and self._same_time(entry['time'], row.there.st_mtime_ns)):
            return True
        return self._hash_there(row) == entry['sha256']

    def _is_as_deployed(self, row, file):
        if file['link'] or row.link_there:
            return file['link'] == row.link_there
        if not stat.S_ISREG(row.there.st_mode) or row.there.st_size != file['size']:
            return False
        if row.hash_there:
            return row.hash_there == file['sha256']
        seconds = row.there.st_mtime_ns // SECOND
        step = max(self._tree.step // SECOND, 1)
        if not self._options['checksum'] and seconds // step == file['time'] // step:
            return True
        return self._hash_there(row) == file['sha256']

    def recorded(self, row):
        """What the record says of the file; nothing when it does not know it."""
        return self._recorded.get(self._fold(row.path))

    def _state_of(self, row):
        file = self.recorded(row)
        if not row.there:
            return 'gone-there' if file else 'new'
        if self._is_as_here(row):
            return 'same'
        if not file:
            return 'unrecorded'
        if self._is_as_deployed(row, file):
            return 'changed'
        as_here = (file['link'] == row.entry['link'] if file['link'] or row.entry['link']
                   else file['sha256'] == row.entry['sha256'])
        return 'changed-there' if as_here else 'conflict'

    def _decide(self, row):
        options, entry = self._options, row.entry
        row.state = self._state_of(row)
        is_same = row.state == 'same' and not options['force']
        if row.there and not entry['overwrite']:
            row.action = 'kept'
        elif row.state in ('changed-there', 'conflict') and not options['overwrite_changed']:
            row.action = 'refused'
            row.reason = CHANGED_BOTH if row.state == 'conflict' else CHANGED_THERE
        elif is_same:
            mode = stat.S_IMODE(row.there.st_mode) & 0o777
            differs = not entry['link'] and self._tree.keeps_modes and mode != entry['mode']
            row.action = 'mode' if differs else 'unchanged'
        if row.action == 'copied':
            row.steps = list(entry['steps'])
            row.bytes = 0 if entry['link'] else entry['size']
            if (row.state == 'unrecorded' and not entry['link']
                    and row.there.st_mtime_ns > entry['time']):
                self.warnings.append('%s is newer than "%s", which is copied over it'
                                     % (row.remote_file, row.local_name))
        elif row.action in ('unchanged', 'mode'):
            row.steps = owed_steps(entry['steps'], self._record['owed'].get(row.path, []))

    def _find_left_overs(self):
        listed = {self._fold(row.path) for row in self.rows}
        for path, file in sorted(self._record['files'].items()):
            target = (file['platform'], file['configuration'])
            if (target == (self._wanted['platform'], self._wanted['configuration'])
                    and self._fold(path) not in listed):
                self._take_left_over(path, file)

    def _take_left_over(self, path, file):
        directory, name = path.rpartition('/')[::2]
        place = self._tree.resolve(directory)
        if place.problem or not place.inside:
            return  # it leads elsewhere now
        row = Row(None)
        row.local_name, row.directory, row.name, row.path = file['localName'], place.path, name, path
        try:
            if place.exists:
                self._look(row)
        except OSError:
            return
        if not row.there:
            self.forgotten.append(path)
            return
        is_left = self._is_as_deployed(row, file)
        row.state = 'left-over' if is_left else 'left-over-changed'
        self.left_overs.append(row)
        if not self._options['prune']:
            return
        row.action = 'removed' if is_left else 'refused'
        row.reason = '' if is_left else LEFT_OVER_CHANGED
        self.rows.append(row)

    def remembered(self, row):
        """True when the record says of a row that is the same what it should."""
        file, entry = self.recorded(row), row.entry
        return bool(file) and all(
            (file['size'] == entry['size'], file['sha256'] == entry['sha256'],
             file['mode'] == entry['mode'], file['link'] == entry['link'],
             file['class'] == entry['class'], file['localName'] == entry['localName'],
             file['platform'] == self._wanted['platform'],
             file['configuration'] == self._wanted['configuration']))

    def has_work(self):
        """False when the machine and its record are what they should be."""
        def needs_work(row):
            return (row.action in ('copied', 'removed', 'mode') or row.steps
                    or (row.action == 'unchanged' and row.state == 'same'
                        and not self.remembered(row)))
        return bool(self.after_deploy or self.forgotten or any(map(needs_work, self.rows)))

    def commands(self):
        """The commands that run on the machine, in their order."""
        commands = [{'where': 'target', 'command': step_text(step, row.name),
                     'file': row.remote_file} for row in self.rows for step in row.steps]
        if self.after_deploy:
            commands.append({'where': 'target', 'command': self.after_deploy, 'file': ''})
        return commands


def step_text(step, name):
    """A step for people, such as "unpack a.tar"."""
    return step[len('command:'):] if step.startswith('command:') else '%s %s' % (step, name)
