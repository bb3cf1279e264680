"""Every system file the repository names comes from a package the install script installs.

A developer's machine that happens to have a package hides a missing install step until the
suite runs on a fresh machine; this test makes the omission visible on any machine.
"""

import os
import re
import shutil
import subprocess
import unittest

from shipped import ROOT

# A path under /usr or /etc, as written in a script, a build file, a test or a tool.
SYSTEM_PATH = re.compile(r"(?<![\w.~/-])/(?:usr|etc)/[\w+.-]+(?:/[\w+.-]+)*")
TEXT_FILE = re.compile(r"\.(py|cpp|h|sh|cmake|txt|md|qrc|in)$|^scripts/|^bench/|^\.ci/")


def repository_files():
    listed = subprocess.run(["git", "-C", ROOT, "ls-files"], capture_output=True, text=True)
    if listed.returncode == 0:
        return [f for f in listed.stdout.splitlines() if not f.startswith("data/")]
    found = []
    for top, dirs, files in os.walk(ROOT):
        dirs[:] = [d for d in dirs if not d.startswith((".", "build")) and d != "data"]
        found += [os.path.relpath(os.path.join(top, f), ROOT) for f in files]
    return found


def named_system_paths():
    paths = set()
    for name in repository_files():
        if not TEXT_FILE.search(name):
            continue
        with open(os.path.join(ROOT, name), encoding="utf-8", errors="replace") as f:
            paths.update(m.rstrip(".") for m in SYSTEM_PATH.findall(f.read()))
    return paths


def installed_packages():
    """The packages of scripts/install-deps.sh, with what they pull in directly."""
    with open(os.path.join(ROOT, "scripts", "install-deps.sh"), encoding="utf-8") as f:
        script = f.read()
    block = re.search(r"packages=\((.*?)\)", script, re.S).group(1)
    listed = set(re.sub(r"#[^\n]*", "", block).split())
    depends = subprocess.run(
        ["dpkg-query", "-W", "-f=${Depends},${Pre-Depends}\n", *listed],
        capture_output=True, text=True).stdout
    pulled = {re.split(r"[\s:(]", alt.strip())[0]
              for dep in depends.replace("\n", ",").split(",") for alt in dep.split("|")
              if alt.strip()}
    return listed | pulled


def base_system_packages():
    """Essential and required packages are on every Debian machine."""
    out = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Essential} ${Priority}\n"],
                         capture_output=True, text=True).stdout
    return {line.split()[0] for line in out.splitlines()
            if " yes " in line or line.endswith(" required")}


@unittest.skipUnless(shutil.which("dpkg") and shutil.which("git"), "needs a Debian machine")
class SystemFilesComeFromListedPackages(unittest.TestCase):
    def test_every_named_system_path_is_installed_by_the_install_script(self):
        allowed = installed_packages() | base_system_packages()
        problems = []
        for path in sorted(named_system_paths()):
            if os.path.isdir(path):
                continue  # a folder such as /usr/bin belongs to many packages
            owner = subprocess.run(["dpkg", "-S", path], capture_output=True, text=True)
            if owner.returncode != 0:
                problems.append(f"{path}: no installed package has it")
                continue
            packages = {p.strip() for p in owner.stdout.split(":", 1)[0].split(",")}
            if not packages & allowed:
                problems.append(f"{path}: from {', '.join(sorted(packages))}, "
                                "which scripts/install-deps.sh does not install")
        self.assertEqual(problems, [])


if __name__ == "__main__":
    unittest.main()
