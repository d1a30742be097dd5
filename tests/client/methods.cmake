# SPDX-License-Identifier: Apache-2.0
# The delivery methods that the client brings beside the library's own.
zepa_test(client_methods_test LABEL unit
  SOURCES
    methods/command_method_test.cpp
    methods/log_file_method_test.cpp
    methods/log_writer_test.cpp
    methods/outside_methods_test.cpp
    methods/shell_warning_test.cpp
    methods/speech_method_test.cpp
    methods/speech_text_test.cpp
    methods/word_list_test.cpp
  LIBRARIES zepa_outside_methods zepa_platform)

zepa_test(client_spoken_test LABEL desktop
  SOURCES methods/spoken_test.cpp audio/sound_server.cpp
  LIBRARIES zepa_outside_methods zepa_platform)
