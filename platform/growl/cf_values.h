// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace zepa::growl {

/// A copy of the text; null for null.
QString toQString(CFStringRef string);
/// The bytes themselves, which live as long as `data`; empty for null.
QByteArrayView bytesOf(CFDataRef data);
/// The array under `key`; null when there is none.
CFArrayRef arrayIn(CFDictionaryRef dictionary, CFStringRef key);
/// The strings among the first `count` values of `array`, in order; empty for null. There must be so many.
QStringList stringsIn(CFArrayRef array, CFIndex count);

} // namespace zepa::growl
