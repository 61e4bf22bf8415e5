#!/usr/bin/env python3
"""Replays a recorded session with `orbel lsp`, by nothing but the standard library.

client.py ORBEL SESSION: each line "--> MESSAGE" of the session is sent, each line "<-- MESSAGE" is waited for. What is
expected holds where all of its members, and all elements of its arrays in any order, are found in what came.
"""

import json
import subprocess
import sys
import threading

SECONDS = 60


def holds(expected, found):
    if isinstance(expected, dict):
        return isinstance(found, dict) and all(key in found and holds(expected[key], found[key]) for key in expected)
    if isinstance(expected, list):
        if not isinstance(found, list) or (not expected and found):
            return False
        return all(any(holds(each, other) for other in found) for each in expected)
    return expected == found


def read(stream):
    length = None
    for line in iter(stream.readline, b"\r\n"):
        if not line:
            return None
        name, _, value = line.partition(b":")
        if name.lower() == b"content-length":
            length = int(value)
    return json.loads(stream.read(length).decode("utf-8"))


def send(stream, text):
    body = text.encode("utf-8")
    stream.write(b"Content-Length: %d\r\n\r\n" % len(body) + body)
    stream.flush()


def replay(server, lines):
    for number, line in enumerate(lines, 1):
        mark, _, text = line.strip().partition(" ")
        if mark == "-->":
            send(server.stdin, text)
        elif mark == "<--":
            found = read(server.stdout)
            if not holds(json.loads(text), found):
                return "line %d: wanted %s\ngot %s" % (number, text, json.dumps(found))
    server.stdin.close()
    status = server.wait(SECONDS)
    return "the server ended with %d" % status if status else None


def main(orbel, session):
    with open(session, encoding="utf-8") as file:
        lines = file.readlines()
    server = subprocess.Popen([orbel, "lsp"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    watch = threading.Timer(SECONDS, server.kill)
    watch.start()
    fault = replay(server, lines)
    watch.cancel()
    server.kill()
    if fault:
        sys.exit(fault)
    print("%d messages" % sum(line.startswith(("-->", "<--")) for line in lines))


if __name__ == "__main__":
    main(*sys.argv[1:])
