# What came of a deploy on a machine, as it is told.
from __future__ import absolute_import, division, print_function

__metaclass__ = type

from ansible.module_utils.deployment_plan import step_text
from ansible.module_utils.deployment_run import CANCELLED, FAILED, UNEXPECTED

ACTIONS = ('copied', 'unchanged', 'mode', 'kept', 'skipped', 'removed', 'refused', 'failed')
MOST_NAMED = 200  # rows in a message


def status_of(deploy):
    """0, 1 when something failed, 8 when rows were refused, 130 when it was interrupted."""
    actions = {row.action for row in deploy.plan.rows}
    if deploy.is_cancelled():
        return CANCELLED
    if 'refused' in actions:
        return UNEXPECTED
    return FAILED if 'failed' in actions or deploy.after_deploy_problem else 0


def counts_of(deploy):
    """How many rows met which end."""
    counts = {}
    for action in ACTIONS:
        count = len([row for row in deploy.plan.rows if row.action == action])
        if count or action not in ('mode', 'removed'):
            counts[action] = count
    return counts


def rows_of(deploy, action):
    """The rows with an action and why, for people and playbooks."""
    return [{'remoteFile': row.remote_file, 'state': row.state, 'reason': row.reason or row.error}
            for row in deploy.plan.rows if row.action == action]


def _named(title, rows):
    if not rows:
        return []
    names = ['%s: %s' % (row['remoteFile'], row['reason']) for row in rows[:MOST_NAMED]]
    if len(rows) > MOST_NAMED:
        names.append('and %d more' % (len(rows) - MOST_NAMED))
    return ['%d %s: %s' % (len(rows), title, '; '.join(names))]


def message_of(deploy):
    """One text that names every row which was refused or failed."""
    parts = ['the run was interrupted'] if deploy.is_cancelled() else []
    parts += _named('refused', rows_of(deploy, 'refused'))
    parts += _named('failed', rows_of(deploy, 'failed'))
    if deploy.after_deploy_problem:
        parts.append(deploy.after_deploy_problem)
    if not parts:
        parts = [', '.join('%d %s' % (count, action)
                           for action, count in counts_of(deploy).items()
                           if count or action == 'copied')]
    return '; '.join(parts)


def document_of(deploy, wanted):
    """What a deploy says of itself."""
    plan, record = deploy.plan, deploy.record
    owed = [{'remoteFile': path, 'command': step_text(step, path.rpartition('/')[2])}
            for path, steps in sorted(record['owed'].items()) for step in steps]
    if record['owedAfterDeploy']:
        owed.append({'remoteFile': '', 'command': record['owedAfterDeploy']})
    after = None
    if plan.after_deploy:
        after = {'command': plan.after_deploy,
                 'done': deploy.carried_out and not deploy.after_deploy_problem,
                 'error': deploy.after_deploy_problem}
    document = {'platform': wanted['platform'], 'configuration': wanted['configuration'],
                'files': [row.json() for row in plan.rows], 'commands': plan.commands(),
                'leftOvers': [{'remoteFile': row.remote_file, 'localName': row.local_name,
                               'state': row.state} for row in plan.left_overs],
                'owed': owed, 'afterDeploy': after}
    document.update(counts_of(deploy))
    return document
