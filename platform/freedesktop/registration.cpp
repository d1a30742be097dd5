// SPDX-License-Identifier: Apache-2.0
#include "registration.h"

#include "cf_values.h"

namespace zepa::freedesktop {

namespace {

CFIndex countOf(CFArrayRef array)
{
    return array == nullptr ? 0 : CFArrayGetCount(array);
}

QSet<QString> setOf(const QStringList& names)
{
    return {names.cbegin(), names.cend()};
}

} // namespace

Registration::~Registration()
{
    set(nullptr);
}

void Registration::set(const Growl_Delegate* delegate)
{
    m_set = delegate != nullptr;
    if (!m_set)
        ++m_generation;
    const Growl_Delegate nobody{};
    const Growl_Delegate& record = m_set ? *delegate : nobody;
    m_applicationName = toQString(record.applicationName);
    const QByteArrayView icon = bytesOf(record.applicationIconData);
    if (icon != QByteArrayView(m_iconData))
        m_iconData = icon.toByteArray();
    m_clicked = record.growlNotificationWasClicked;
    m_timedOut = record.growlNotificationTimedOut;
    readNames(record.registrationDictionary);
}

void Registration::readNames(CFDictionaryRef dictionary)
{
    const CFArrayRef all = dictionary == nullptr ? nullptr : arrayIn(dictionary, CFSTR("AllNotifications"));
    const CFArrayRef enabled = dictionary == nullptr ? nullptr : arrayIn(dictionary, CFSTR("DefaultNotifications"));
    const CFIndex nameCount = countOf(all) + countOf(enabled);
    if (dictionary == m_dictionary && nameCount == m_nameCount)
        return;
    if (dictionary != nullptr)
        CFRetain(dictionary);
    if (m_dictionary != nullptr)
        CFRelease(m_dictionary);
    m_dictionary = dictionary;
    m_nameCount = nameCount;
    m_enabled = setOf(stringsIn(all));
    if (enabled != nullptr)
        m_enabled.intersect(setOf(stringsIn(enabled)));
}

} // namespace zepa::freedesktop
