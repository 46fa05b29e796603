#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares the tests that a native build has with those that ran in a cross build.

    compare_results.py NATIVE CROSS     the two build folders

Names what didn't run and why. Fails when a test program is missing without a reason given here, or
when less than the share below ran of the tests whose programs exist on both systems.
"""

import json
import os
import subprocess
import sys
import xml.etree.ElementTree as xml

LEAST_SHARE = 0.93

KERNEL = "needs Open CASCADE, which isn't built for Windows"
ABSENT = {
    "host_brixrebuild_test": KERNEL,
    "host_measure_test": KERNEL,
    "host_shape_test": KERNEL,
    "server_geometry_test": KERNEL,
    "server_modelwriter_test": KERNEL,
    "server_process_test": KERNEL,
    "platform_posix_test": "is about the stand-in for Windows",
    "inject-faults": "runs a script that starts programs of this machine",
    "refuse-calls": "runs a script that starts programs of this machine",
    "check-options": "runs a script that starts programs of this machine",
    "python3": "runs a script over the pages and models of this machine",
    "Package.BuildsTheExamplesFromWhereItWasMoved": "is about the package of this machine",
    "Package.IsAPartOfAnotherProject": "is about the package of this machine",
    "Package.NamesNoPathOfThisMachine": "is about the package of this machine",
}


def registered(folder):
    """The tests as they are registered: pairs of name and program. Scripts stand for themselves."""
    listing = subprocess.run(["ctest", "--test-dir", folder, "--show-only=json-v1"], check=True, capture_output=True)
    for test in json.loads(listing.stdout)["tests"]:
        program = os.path.basename(test["command"][0])
        yield test["name"], test["name"] if program == "cmake" else program


def native_counts(folder):
    """How many cases each program has; there, each is registered."""
    counts = {}
    for _, program in registered(folder):
        counts[program] = counts.get(program, 0) + 1
    return counts


def cross_results(folder):
    """What ran of each program, and what of it was skipped, as pairs of name and reason. There,
    programs are registered, and each left an account."""
    ran, skipped = {}, []
    for name, program in registered(folder):
        ran[name] = 0
        if program == name:
            ran[name] = 1
            continue
        account = os.path.join(folder, "results", name + ".xml")
        for case in xml.parse(account).getroot().iter("testcase"):
            notice = case.find("skipped")
            if notice is None and case.get("status") == "run":
                ran[name] += 1
            else:
                reason = notice.get("message") if notice is not None else "disabled"
                skipped.append((f"{case.get('classname')}.{case.get('name')}", reason.split("\n")[-1]))
    return ran, skipped


def main(native, cross):
    counts = native_counts(native)
    ran, skipped = cross_results(cross)
    missing = sorted(set(counts) - set(ran))
    for program in missing:
        print(f"   skipped: {program} ({counts[program]} tests): {ABSENT.get(program, 'NO REASON KNOWN')}")
    for name, reason in skipped:
        print(f"   skipped: {name}: {reason}")
    there, here = sum(ran.values()), sum(counts.values())
    shared = here - sum(counts[program] for program in missing)
    print(f"   {there} of {here} tests ran on Windows, {100 * there / here:.1f} %;")
    print(f"   of the {shared} whose programs exist there, {100 * there / shared:.1f} %")
    return 1 if set(missing) - set(ABSENT) or there < LEAST_SHARE * shared else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
