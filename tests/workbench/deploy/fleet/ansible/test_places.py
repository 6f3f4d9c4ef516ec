"""Which names of an inventory are one place. Needs the engine, whose plug-in it is."""
import os
import subprocess
import unittest

from machine import SOURCE

SCRIPT = '''
import sys
sys.path.insert(0, %r)
from deployment_files import place_of, same_places
places = [("a", {}), ("b", {"ansible_host": "A"}), ("c", {"ansible_host": "a", "ansible_port": 2222}),
          ("d", {"ansible_host": "a", "deployment_root": "/opt/x/../demo/"}),
          ("e", {"ansible_host": "a", "deployment_root": "~/demo", "ansible_user": "eva"}),
          ("f", {"ansible_host": "a", "deployment_root": "~/demo", "ansible_user": "tom"}),
          ("g", {"ansible_connection": "local"}), ("h", {"ansible_connection": "ansible.builtin.local"}),
          ("i", {"ansible_connection": "local", "deployment_root": "/opt/i"})]
print(same_places([(name, place_of(name, more, "/opt/demo")) for name, more in places]))
'''
PYTHON = '/usr/bin/python3'


def has_engine():
    return os.path.exists(PYTHON) and not subprocess.call(
        [PYTHON, '-c', 'import ansible'], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


@unittest.skipUnless(has_engine(), 'ansible-core is not installed')
class Places(unittest.TestCase):

    def test_kind_address_port_and_root_tell_them_apart(self):
        script = SCRIPT % os.path.join(SOURCE, 'action_plugins')
        found = subprocess.check_output([PYTHON, '-c', script], universal_newlines=True)
        self.assertEqual(found.strip(), "[('a', 'b'), ('a', 'd'), ('g', 'h')]")


if __name__ == '__main__':
    unittest.main()
