# SPDX-License-Identifier: Apache-2.0
"""The rooms of the product, what each may include, and which of its headers the others may see (docs/architecture.md)."""

import pathlib

# What each room may include besides itself and the C++ library: other rooms, and kinds of headers from outside.
# "system" is platform/include, or what stands for it on macOS. From the lowest room to the highest.
TABLE = {
    "host": {"Qt"},
    "core": {"Qt", "host"},
    "methods": {"Qt", "host", "core", "system"},

    "platform/include": {"Qt", "system"},
    "platform/corefoundation": {"Qt", "system"},
    "platform/bus": {"Qt", "system", "sd-bus"},
    "platform/growl": {"Qt", "system"},
    "platform/freedesktop": {"Qt", "system", "platform/growl"},
    "platform/portal": {"Qt", "system", "platform/growl", "platform/freedesktop"},
    "platform/attention": {"Qt", "system"},

    "kit": {"Qt"},
    "kit/files": {"Qt"},
    "kit/texts": {"Qt", "kit"},
    "kit/values": {"Qt", "host", "kit"},
    "kit/sound": {"Qt", "host", "kit", "kit/files", "kit/texts", "sound"},
    "kit/settings": {"Qt", "host", "core", "methods", "kit", "kit/files", "kit/values"},
    "kit/rules": {"Qt", "host", "core", "kit", "kit/files", "kit/values", "kit/settings"},
    "kit/journal": {"Qt", "host", "core", "methods", "system", "kit", "kit/files", "kit/texts", "kit/rules"},
    "kit/extra_methods": {"Qt", "host", "core", "kit/files", "kit/texts", "kit/settings"},
    "kit/widgets": {"Qt", "host", "kit", "kit/files", "kit/texts"},
    "kit/settings_page": {"Qt", "host", "core", "methods", "kit", "kit/texts", "kit/values", "kit/settings",
                          "kit/rules", "kit/journal", "kit/extra_methods", "kit/widgets"},

    "client/chats": {"Qt", "host", "core", "system", "kit", "kit/texts", "kit/journal", "kit/widgets"},
    # What is started once: the Client, which makes everything, and the surroundings of the process.
    "client": {"Qt", "core", "system", "kit/files", "kit/settings", "kit/sound", "kit/rules", "kit/journal",
               "kit/extra_methods", "kit/settings_page", "client/chats"},
    "client/window": {"Qt", "host", "core", "kit", "kit/texts", "kit/settings", "kit/rules", "kit/journal",
                      "kit/widgets", "kit/settings_page", "client/chats", "client"},
    "client/cli": {"Qt", "host", "core", "kit/files", "kit/texts", "kit/values", "kit/settings",
                   "kit/rules", "kit/journal", "kit/extra_methods", "client/chats", "client"},
    "client/instance": {"Qt", "system", "client", "client/window", "client/cli"},
    "client/main": {"Qt", "system", "kit/rules", "kit/journal", "kit/widgets", "client", "client/window", "client/cli",
                    "client/instance"},
}
# Files that are a room of their own inside of a folder: what ties the parts of the program together.
FILES = {"client/main.cpp": "client/main", "client/termination.cpp": "client/main",
         "client/termination.h": "client/main"}

# The headers of a room that other rooms may include, beside "*_export.h".
PUBLIC = {
    "host": {"arg.h", "audio.h", "buddy.h", "chat_manager.h", "chat_window.h", "field.h", "plugin_action.h",
             "settings_manager.h", "settings_manager_private.h", "tray_icon.h", "xml_node.h"},
    "core": {"built_in_methods.h", "method_ids.h", "notification.h", "notification_method.h", "notification_module.h",
             "notification_rule.h", "regular_file.h", "repeat_rule.h", "rule_document.h", "type_ids.h"},
    "methods": {"sound_rule.h"},
    "platform/growl": {"popup_service.h"},
    "platform/freedesktop": {"bus_popup_service.h", "bus_text.h", "freedesktop_log.h", "held_postings.h",
                             "notification_service.h", "notify_call.h", "service_address.h"},
    "kit/files": {"base_folders.h", "file_lock.h", "file_state.h", "private_folder.h", "private_umask.h",
                  "regular_file.h"},
    "kit/texts": {"escapes.h", "fault_log.h", "image_markers.h", "message_text.h", "plain_text.h"},
    "kit/values": {"field_value.h"},
    "kit/sound": {"audio_service.h", "sound_decoder.h"},
    "kit/settings": {"global_settings.h", "hidden_rule_folder.h", "setting_store.h", "settings.h",
                     "settings_file.h"},
    "kit/rules": {"method_titles.h", "protected_module.h", "rule_backup.h", "rule_editor.h", "rule_lock.h",
                  "rule_state.h", "rule_store.h",
                  "safe_change.h", "type_ids.h"},
    "kit/journal": {"announce.h", "answer_token.h", "delivery_log.h", "event_wait.h", "journal.h", "journal_entry.h",
                    "journal_filter.h", "journal_text.h", "notification_service.h", "posting.h",
                    "recorded_methods.h", "recorder.h", "recording_method.h", "report.h"},
    "kit/extra_methods": {"child_environment.h", "command/command_template.h", "command/shell_warning.h",
                          "extra_methods.h"},
    "kit/widgets": {"accessible_role.h", "bring_to_front.h", "elided_label.h", "plain_widgets.h", "screen_reader_text.h",
                    "sealed_document.h", "theme_pictures.h"},
    "kit/settings_page": {"notification_settings.h", "sample_posting.h", "sound_check.h"},
    "client/chats": {"chat_attention.h", "chat_manager.h", "chat_window.h", "presence.h", "show_in_chat.h"},
    "client": {"client.h", "environment.h", "finish_delivering.h", "languages.h"},
    "client/window": {"client_requests.h", "main_window.h"},
    "client/cli": {"command_line.h", "exit_code.h", "job.h", "output.h", "run.h", "standard_streams.h"},
    "client/instance": {"bus_name.h", "remote_client.h", "server.h"},
}


def room_of(path):
    """The room that the file `path` (relative to the repository) is in; its first folder where the table has none."""
    path = pathlib.PurePath(path)
    inner = "/".join(path.parts[:2])
    if inner in FILES:
        return FILES[inner]
    return inner if inner in TABLE else path.parts[0]


def is_public(path):
    """Whether other rooms may include the header `path`."""
    room = room_of(path)
    inside = str(pathlib.PurePath(path).relative_to(room)) if room in TABLE and room not in FILES.values() else ""
    return path.name.endswith("_export.h") or inside in PUBLIC.get(room, set())
