# SPDX-License-Identifier: Apache-2.0
# The copies that protect the rule files.
zepa_test(client_rule_backup_test LABEL unit
  SOURCES
    rule_backup_test.cpp
    rule_backup_disk_test.cpp
    rule_lock_test.cpp
    rule_sync_test.cpp
    safe_change_test.cpp
    small_disk.cpp
  LIBRARIES zepa_rules zepa_platform)
