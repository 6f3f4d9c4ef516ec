"""What runs on machines keeps to the oldest Python that they may have."""
import ast
import os
import unittest

from machine import SOURCE


class Style(unittest.TestCase):

    def sources(self):
        for directory in ('library', 'module_utils'):
            for name in sorted(os.listdir(os.path.join(SOURCE, directory))):
                if name.endswith('.py'):
                    with open(os.path.join(SOURCE, directory, name), encoding='utf-8') as stream:
                        yield name, stream.read()

    def test_it_is_written_in_the_oldest_python_that_is_promised(self):
        for name, text in self.sources():
            if 'feature_version' in ast.parse.__code__.co_varnames:
                ast.parse(text, name, feature_version=(3, 6))

    def test_a_file_stays_short_enough_to_be_read(self):
        for name, text in self.sources():
            self.assertLessEqual(text.count('\n'), 400, name)

    def test_the_module_documents_every_option(self):
        text = dict(self.sources())['deployment_files.py']
        values = {node.targets[0].id: node.value for node in ast.parse(text).body
                  if isinstance(node, ast.Assign) and isinstance(node.targets[0], ast.Name)}
        documented = ast.literal_eval(values['DOCUMENTATION'])
        arguments = [node for node in ast.parse(text).body
                     if isinstance(node, ast.FunctionDef) and node.name == 'arguments'][0]
        for key in arguments.body[-1].value.keys:
            self.assertIn('\n  %s:\n' % ast.literal_eval(key), documented)
        for name in ('EXAMPLES', 'RETURN'):
            self.assertIn(name, values)


if __name__ == '__main__':
    unittest.main()
