"""Every system file the repository names comes from a package the install script installs:
a developer's machine that happens to have a package would hide a missing install step."""

import os
import re
import shutil
import subprocess
import unittest

from shipped import ROOT

# A path under /usr or /etc, as written in a script, a build file, a test or a tool.
SYSTEM_PATH = re.compile(r"(?<![\w.~/-])/(?:usr|etc)/[\w+.-]+(?:/[\w+.-]+)*")
TEXT_FILE = re.compile(r"\.(py|cpp|h|sh|cmake|txt|md|qrc|in)$|^scripts/|^bench/|^\.ci/")


def run(*command):
    return subprocess.run(command, capture_output=True, text=True)


def named_system_paths():
    paths = set()
    for name in run("git", "-C", ROOT, "ls-files").stdout.splitlines():
        if not name.startswith("data/") and TEXT_FILE.search(name):
            with open(os.path.join(ROOT, name), encoding="utf-8", errors="replace") as f:
                paths.update(m.rstrip(".") for m in SYSTEM_PATH.findall(f.read()))
    return paths


def allowed_packages():
    """The packages of scripts/install-deps.sh, what they pull in directly, and the essential
    and required packages every Debian machine has."""
    with open(os.path.join(ROOT, "scripts", "install-deps.sh"), encoding="utf-8") as f:
        block = re.search(r"packages=\((.*?)\)", f.read(), re.S).group(1)
    listed = set(re.sub(r"#[^\n]*", "", block).split())
    depends = run("dpkg-query", "-W", "-f=${Depends},${Pre-Depends}\n", *listed).stdout
    pulled = {re.split(r"[\s:(]", alt.strip())[0]
              for dep in depends.replace("\n", ",").split(",") for alt in dep.split("|")
              if alt.strip()}
    base = run("dpkg-query", "-W", "-f=${Package} ${Essential} ${Priority}\n").stdout
    return listed | pulled | {line.split()[0] for line in base.splitlines()
                              if " yes " in line or line.endswith(" required")}


@unittest.skipUnless(shutil.which("dpkg") and shutil.which("git"), "needs a Debian machine")
class SystemFilesComeFromListedPackages(unittest.TestCase):
    def test_every_named_system_path_is_installed_by_the_install_script(self):
        allowed = allowed_packages()
        problems = []
        for path in sorted(p for p in named_system_paths() if not os.path.isdir(p)):
            owner = run("dpkg", "-S", path)
            packages = {p.strip() for p in owner.stdout.split(":", 1)[0].split(",")}
            if owner.returncode != 0:
                problems.append(f"{path}: no installed package has it")
            elif not packages & allowed:
                problems.append(f"{path}: from {', '.join(sorted(packages))}, "
                                "which scripts/install-deps.sh does not install")
        self.assertEqual(problems, [])
