// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>
#include <QTime>

class ZepaNotificationModule;

/// The module's table of postings that it remembers, to be filled and emptied without posting and without waiting.
QHash<QString, QTime>& rememberedPostings(ZepaNotificationModule& module);
