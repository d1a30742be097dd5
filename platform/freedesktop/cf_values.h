// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace zepa::freedesktop {

/// A copy of the text; null for null.
QString toQString(CFStringRef string);
/// The bytes themselves, which live as long as `data`; empty for null.
QByteArrayView bytesOf(CFDataRef data);
/// The array under `key`; null when there is none.
CFArrayRef arrayIn(CFDictionaryRef dictionary, CFStringRef key);
/// The strings in `array`, in order, without what else there may be; empty for null.
QStringList stringsIn(CFArrayRef array);

} // namespace zepa::freedesktop
