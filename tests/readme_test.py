# SPDX-License-Identifier: Apache-2.0
"""The README shows the example that is built, and names only files that are there."""
import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent
readme = (root / "README.md").read_text()
example = (root / "examples" / "embedding.cpp").read_text().split("\n", 1)[1].strip()
faults = []
if "```cpp\n" + example + "\n```" not in readme:
    faults.append("the code under Embedding differs from examples/embedding.cpp")
for target in re.findall(r"\]\(([^)#:]+)\)", readme):
    if not (root / target).exists():
        faults.append(f"{target} is not there")
print("\n".join(faults) or "ok")
sys.exit(bool(faults))
