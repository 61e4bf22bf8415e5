#!/usr/bin/env python3
"""Gives headings that are one word that word as anchor, by which links within a page find them; prints the page."""

import re
import sys

with open(sys.argv[1], encoding="utf-8") as page:
    print(re.sub(r"^(## ([a-z]+-[a-z-]+))$", r"\1 {#\2}", page.read(), flags=re.M), end="")
