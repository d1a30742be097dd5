# SPDX-License-Identifier: Apache-2.0
# Tests of the audio service and of the themes.
zepa_test(client_sound_decoder_test LABEL unit
  SOURCES audio/sound_decoder_test.cpp
  LIBRARIES zepa_client_audio zepa_client_files)
zepa_test(client_audio_service_test LABEL unit
  SOURCES audio/audio_service_test.cpp
  LIBRARIES zepa_client_audio zepa_client_files)
zepa_test(client_sound_server_test LABEL desktop
  SOURCES audio/sound_server_test.cpp audio/sound_server.cpp audio/likeness.cpp
  LIBRARIES zepa_client_audio zepa_client_files)
set_source_files_properties(audio/sound_server.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
target_compile_definitions(client_sound_server_test PRIVATE ZEPA_SOURCE_THEMES="${CMAKE_SOURCE_DIR}/client/themes")
zepa_test(client_themes_test LABEL unit
  SOURCES audio/themes_test.cpp audio/likeness.cpp
  LIBRARIES zepa_gui_notification zepa_client zepa_platform zepa_client_audio)
target_compile_definitions(client_themes_test PRIVATE ZEPA_SOURCE_THEMES="${CMAKE_SOURCE_DIR}/client/themes")
# It compares millions of samples.
set_source_files_properties(audio/likeness.cpp PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
