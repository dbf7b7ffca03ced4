#!/usr/bin/env bash
# The module's start and stop with the settings: the Lisp readers and
# setters, the project command, and what the stop saved.
set -euo pipefail
"$TOLV" host --main-dir "$SUPPORT" --script tools/scripts/demo.scr
echo "== what the stop saved: config.xml against the bundled copy"
diff share/support/config.xml "$SUPPORT/config.xml" || true
