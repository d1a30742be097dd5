// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLoggingCategory>

/// Everything that the delivery methods from outside have to say goes through this category, "zepa.methods": names of
/// programs, files and voices from the settings, never the text of a message.
Q_DECLARE_LOGGING_CATEGORY(lcZepaMethods)
