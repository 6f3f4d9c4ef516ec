#!/usr/bin/env python3
"""Compares what "deploymgr list" shows as checked with what a build sees of the side file.

    tools/check_side_files.py DEPLOYMGR [--every N] TREE...

Each tree is copied first. Every project, or with --every each N-th project, below it is reconciled, and for every platform of every
configuration that inherits from nothing but "Base" the build tool xbuild (Debian: mono-xbuild) evaluates the project with its side file.
Ends with 0 when both say the same everywhere, with 1 when they differ, with 77 without xbuild.
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

NAMESPACE = "http://schemas.microsoft.com/developer/msbuild/2003"
EMPTY = f'<Project xmlns="{NAMESPACE}"/>\n'
SHOW = """
  <Target Name="ShowDeployFiles_">
    <Message Importance="high" Text="ITEM $(Platform)|$(Config)|%(DeployFile.Identity)"
             Condition="'%(DeployFile.Identity)'!=''"/>
  </Target>
"""
INHERITS = re.compile(r'<BuildConfiguration Include="([^"]*)">\s*<Parent>(?!Base<)')


class Check:
    def __init__(self, program, place):
        self.program = str(pathlib.Path(program).resolve())
        self.place = place
        self.targets = place / "build-system"
        self.targets.mkdir()
        for name in ("Default.props", "props", "targets"):
            (self.targets / f"Microsoft.Cpp.{name}").write_text(EMPTY)
        self.environment = dict(os.environ, XDG_CONFIG_HOME=str(place / "config"),
                                XDG_STATE_HOME=str(place / "state"))
        self.pairs = 0
        self.wrong = 0
        self.alone = 0
        self.unread = 0

    def deploymgr(self, *arguments):
        run = subprocess.run([self.program, *arguments, "--json", "--quiet"], text=True,
                             env=self.environment, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL, check=False)
        return json.loads(run.stdout)

    def checked(self, project, configuration, platform):
        rows = self.deploymgr("list", project, "-c", configuration, "-p", platform)["rows"]
        # Rows of configurations that inherit from this one are shown and not deployed.
        return sorted(plain(row["localPath"] + row["localName"]) for row in rows
                      if row["checked"] and row["configuration"] in (configuration, "Base", ""))

    def conditional(self, project):
        """Local names of entries with a condition: only a build knows what that says."""
        files = self.deploymgr("show", project).get("files", [])
        return {plain(file["localName"]) for file in files if file["condition"]}

    def built(self, project, pairs):
        """What a build of each pair sees. A project that xbuild cannot read is set aside for its
        side file alone, which says all of it."""
        text = pathlib.Path(project).read_bytes()
        end = text.rfind(b"</Project>")
        seen = None
        if end >= 0 and b"\x00" not in text[:64]:
            # The import of the side file goes by the name of the project, so the target goes there.
            pathlib.Path(project).write_bytes(text[:end] + SHOW.encode() + text[end:])
            seen = self.run(project, os.path.basename(project), pairs)
            pathlib.Path(project).write_bytes(text)
        if seen is None:
            self.alone += 1
            side = os.path.splitext(os.path.basename(project))[0] + ".deployproj"
            alone = pathlib.Path(project).with_name("side_file_alone_.proj")
            alone.write_text(f'<Project xmlns="{NAMESPACE}"><Import Project="{escaped(side)}"/>{SHOW}'
                             "</Project>")
            seen = self.run(project, alone.name, pairs)
            alone.unlink()
        return seen

    def run(self, project, file, pairs):
        """The names by pair that a build of the file shows; None when xbuild cannot read it."""
        is_cpp = project.endswith(".vcxproj")
        calls = "".join(
            f'<MSBuild Projects="{escaped(file)}" Targets="ShowDeployFiles_" '
            f'Properties="{properties(configuration, platform, is_cpp)}"/>\n'
            for configuration, platform in pairs)
        wrapped = pathlib.Path(project).with_name("show_deploy_files_.proj")
        wrapped.write_text(f'<Project xmlns="{NAMESPACE}"><Target Name="Build">{calls}</Target>'
                           "</Project>")
        run = subprocess.run(["xbuild", "/nologo", "/v:m", f"/p:VCTargetsPath={self.targets}",
                              "/p:ZELK=%24(ZELK)", wrapped.name], cwd=wrapped.parent, text=True,
                             errors="replace", stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                             check=False)
        wrapped.unlink()
        if run.returncode != 0:
            return None
        seen = {pair: [] for pair in pairs}
        for line in run.stdout.splitlines():
            if "ITEM " in line:
                platform, configuration, name = line.split("ITEM ", 1)[1].split("|")
                pair = (configuration, "Win64" if is_cpp and platform == "x64" else platform)
                seen.setdefault(pair, []).append(plain(name))
        return {pair: sorted(names) for pair, names in seen.items()}

    def compare(self, project):
        document = self.deploymgr("reconcile", project, "--all", "--yes")
        if "results" not in document:
            print(f"{project}: {document['error']['message']}")
            self.unread += 1
            return
        if not os.path.exists(os.path.splitext(project)[0] + ".deployproj"):
            self.deploymgr("export", project)
        others = set(INHERITS.findall(pathlib.Path(project).read_text(errors="replace")))
        pairs = [(result["configuration"], result["platform"]) for result in document["results"]
                 if result["configuration"] not in others]
        if not pairs:
            return
        seen = self.built(project, pairs)
        if seen is None:
            self.unread += 1
            return
        for pair in pairs:
            self.pairs += 1
            if self.difference(project, pair, seen[pair]):
                # Targets of one run may take entries from each other: the target alone decides.
                self.deploymgr("reconcile", project, "-c", pair[0], "-p", pair[1], "--yes")
                again = self.built(project, [pair])
                found = "not built" if again is None else \
                    self.difference(project, pair, again[pair])
                if found:
                    self.wrong += 1
                    print(f"{project} [{pair[0]}, {pair[1]}]: {found}")

    def difference(self, project, pair, seen):
        listed = self.checked(project, *pair)
        apart = self.conditional(project)
        only_listed = [name for name in listed if name not in seen and name not in apart]
        only_seen = [name for name in seen if name not in listed and name not in apart]
        if not only_listed and not only_seen:
            return ""
        return f"listed alone: {only_listed}; built alone: {only_seen}"


def plain(name):
    return name.replace("\\", "/")


def escaped(text):
    return "".join(f"%{ord(letter):02X}" if letter in "%*?@$();'" else letter for letter in text)


def properties(configuration, platform, is_cpp):
    name = "x64" if is_cpp and platform == "Win64" else platform
    return (f"Platform={name};Config={escaped(configuration)};"
            f"Configuration={escaped(configuration)}")


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    if not shutil.which("xbuild"):
        print("xbuild (Debian: mono-xbuild) is not installed, so nothing is compared")
        sys.exit(77)
    with tempfile.TemporaryDirectory() as directory:
        place = pathlib.Path(directory)
        check = Check(sys.argv[1], place)
        trees = sys.argv[2:]
        every = 1
        if trees[0] == "--every":
            every = int(trees[1])
            trees = trees[2:]
        for number, tree in enumerate(trees):
            copy = place / f"{number}" / pathlib.Path(tree).resolve().name
            shutil.copytree(tree, copy, symlinks=True)
            projects = [file for file in sorted(copy.rglob("*"))
                        if file.suffix in (".vproj", ".vcxproj") and file.is_file()]
            for file in projects[::every]:
                check.compare(str(file))
        print(f"{check.pairs} targets compared, {check.wrong} differ; of {check.alone} runs the side "
              f"file alone was read; {check.unread} projects were not compared")
        sys.exit(1 if check.wrong else 0)


if __name__ == "__main__":
    main()
