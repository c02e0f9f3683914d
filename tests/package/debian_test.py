#!/usr/bin/env python3
"""Checks that the Debian packages install, work and leave nothing after their removal.

debian_test.py --build BUILD --compiler CXX --disk-cache ON|OFF

Changes the system for some seconds. Exits with 77, for skipped, if it is not run as root on Debian or if one of the packages is already installed.
"""

import argparse
import fcntl
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

from consumers import HERE, Mode, configure, run
from consumers import build as build_target

ARGUMENTS = argparse.ArgumentParser()
ARGUMENTS.add_argument("--build", type=pathlib.Path, required=True)
ARGUMENTS.add_argument("--compiler", required=True)
ARGUMENTS.add_argument("--disk-cache", choices=["ON", "OFF"], required=True)
GIVEN = ARGUMENTS.parse_args()

PACKAGES = ["libvanticrestkit1", "libvanticrestkit-dev", "vanticrestkit-tools"]
APT = ["apt-get", "-q", "-y", "-o", "DPkg::Lock::Timeout=300"]


def known(package):
    return subprocess.run(["dpkg-query", "-W", package], capture_output=True, check=False).returncode == 0


def why_not():
    if not shutil.which("dpkg-query") or not shutil.which("apt-get") or not shutil.which("dpkg-shlibdeps"):
        return "this is not Debian, or dpkg-dev is missing"
    if os.getuid() != 0:
        return "installing packages needs root"
    installed = [package for package in PACKAGES if known(package)]
    return f"already installed: {', '.join(installed)}" if installed else None


class DebianPackages(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def remove(self):
        installed = list(filter(known, PACKAGES))
        if installed:
            run(*APT, "purge", *installed)

    def test_install_work_and_leave_nothing_after_removal(self):
        run("cpack", "--config", GIVEN.build / "CPackConfig.cmake", "-B", self.folder)
        files = {run("dpkg-deb", "-f", file, "Package").strip(): file for file in self.folder.glob("*.deb")}
        self.assertEqual(sorted(PACKAGES), sorted(files))
        self.assertIn("libcurl4", run("dpkg-deb", "-f", files["libvanticrestkit1"], "Depends"))
        for package, library in (("libvanticrestkit1", "libsqlite3-0"), ("libvanticrestkit-dev", "libsqlite3-dev")):
            depends = run("dpkg-deb", "-f", files[package], "Depends")
            self.assertEqual(GIVEN.disk_cache == "ON", library in depends, depends)
        self.assertIn("libvanticrestkit1 (= ", run("dpkg-deb", "-f", files["libvanticrestkit-dev"], "Depends"))

        content = self.content(files.values())
        self.assertIn("/usr/share/man/man1/vantic-load.1", content)
        self.assertIn("/usr/share/bash-completion/completions/vantic", content)
        present = {path for path in content if os.path.lexists(path)}
        self.addCleanup(self.remove)
        run(*APT, "install", "--no-install-recommends", *files.values(),
            env={**os.environ, "DEBIAN_FRONTEND": "noninteractive"})  # fmt: skip
        for path in content:
            self.assertTrue(os.path.lexists(path), path)

        self.assertIn("Video\n", run("/usr/bin/vantic", "types"))
        self.assertIn("sample-service", run("/usr/bin/sample-service", "--help"))
        configure(HERE / "consumer", self.folder / "host", Mode(GIVEN.compiler), flags=["-O0"])
        self.assertIn("VanticRestKit_DIR:PATH=/usr/lib/", (self.folder / "host/CMakeCache.txt").read_text("utf-8"))
        build_target(self.folder / "host")
        for kind in ("VanticRestKit", "VanticRestKit_static"):
            self.assertIn(": yes\n", run(self.folder / "host" / f"with_{kind}"))
        # The dynamic linker finds the shared library without a path.
        self.assertIn("/libVanticRestKit.so.1", run("ldconfig", "-p"))
        for package in ("VanticRestKit", "VanticRestKit-static"):
            flags = run("pkg-config", "--cflags", "--libs", package).split()
            run(GIVEN.compiler, "-std=c++20", "-O0", self.small_host(), *flags, "-o", self.folder / package)
            run(self.folder / package)

        self.remove()
        for path in content - present:
            self.assertFalse(os.path.lexists(path), f"{path} is left over")
        self.assertEqual([], [package for package in PACKAGES if known(package)])
        self.assertNotIn("libVanticRestKit", run("ldconfig", "-p"))

    def small_host(self):
        source = self.folder / "host.cpp"
        source.write_text(
            "#include <VanticRestKit/platform/url/URL.h>\n"
            'int main() { return VanticRestKit::URL::make("http://127.0.0.1/a") ? 0 : 1; }\n',
            encoding="utf-8",
        )
        return source

    def content(self, files):
        """Every path in the packages, including folders."""
        paths = set()
        for file in files:
            for line in run("dpkg-deb", "-c", file).splitlines():
                paths.add(line.split(None, 5)[5].split(" -> ")[0][1:].rstrip("/") or "/")
        return paths


if __name__ == "__main__":
    reason = why_not()
    if reason:
        print(f"debian_test: skipped: {reason}")
        sys.exit(77)
    # Prevents concurrent runs by two builds on one machine.
    with open("/var/lock/vanticrestkit-debian-test", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        unittest.main(argv=sys.argv[:1], verbosity=2)
