# SPDX-License-Identifier: Apache-2.0
# Tests of the chat windows: of what they make of a stranger's text, and of the windows themselves.
zepa_test(client_chat_text_test LABEL unit
  SOURCES chat/image_markers_test.cpp chat/message_text_test.cpp chat/theme_pictures_test.cpp
  LIBRARIES zepa_client)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
zepa_test(client_chat_window_test LABEL unit
  SOURCES chat/chat_window_test.cpp chat/chat_window_hostile_test.cpp chat/chat_history_test.cpp
  LIBRARIES zepa_client Qt6::Test)
