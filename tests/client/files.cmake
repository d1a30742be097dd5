# SPDX-License-Identifier: Apache-2.0
# How the client opens files, and what it refuses to open.
zepa_test(client_files_test LABEL unit
  SOURCES
    files/popup_pictures_test.cpp
    files/regular_file_test.cpp
    files/settings_file_test.cpp
  LIBRARIES zepa_client)
