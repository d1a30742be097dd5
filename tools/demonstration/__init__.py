# SPDX-License-Identifier: Apache-2.0
"""The demo: a short conversation, heard and seen."""
