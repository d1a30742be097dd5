# SPDX-License-Identifier: Apache-2.0
"""A desktop of our own on a machine without one: bus, screen, window manager, notification service, sound."""
