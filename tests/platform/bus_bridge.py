# SPDX-License-Identifier: Apache-2.0
"""Carries what comes on standard input (a socket) to the Unix socket named by the argument, and back."""

import os
import select
import socket
import sys

bus = socket.socket(socket.AF_UNIX)
bus.connect(sys.argv[1])
ways = {0: bus.fileno(), bus.fileno(): 1}
while True:
    for source in select.select(list(ways), [], [])[0]:
        data = os.read(source, 65536)
        if not data:
            sys.exit()
        while data:
            data = data[os.write(ways[source], data):]
