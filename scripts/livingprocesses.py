# SPDX-License-Identifier: Apache-2.0
"""The processes that come of a program, whatever groups they are in: a variable of the environment
marks them."""
import glob
import os


def living_processes(variable, value):
    """By number, with the names of their programs."""
    mark = f"{variable}={value}".encode() + b"\0"
    found = {}
    for entry in glob.glob("/proc/[0-9]*"):
        try:
            state = open(entry + "/stat").read().rsplit(")", 1)[1].split()[0]
            if state not in "ZX" and mark in open(entry + "/environ", "rb").read():
                program = open(entry + "/cmdline", "rb").read().split(b"\0")[0].decode()
                found[int(os.path.basename(entry))] = os.path.basename(program)
        except (OSError, IndexError):
            pass
    return found
