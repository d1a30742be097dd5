// SPDX-License-Identifier: Apache-2.0
#include "registration.h"

#include "cf_values.h"

namespace zepa::growl {

namespace {

CFIndex countOf(CFArrayRef array)
{
    return array == nullptr ? 0 : CFArrayGetCount(array);
}

QSet<QString> setOf(const QStringList& names)
{
    return {names.cbegin(), names.cend()};
}

/// The array of names under that key, null when there is none.
CFArrayRef namesIn(CFDictionaryRef dictionary, CFStringRef key)
{
    return dictionary == nullptr ? nullptr : arrayIn(dictionary, key);
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
    setNames(record.registrationDictionary);
}

bool Registration::isEnabled(const QString& name) const
{
    if (!m_isRead)
        readNames();
    return m_enabled.contains(name);
}

void Registration::setNames(CFDictionaryRef dictionary)
{
    const CFIndex allCount = countOf(namesIn(dictionary, CFSTR("AllNotifications")));
    const CFIndex defaultCount = countOf(namesIn(dictionary, CFSTR("DefaultNotifications")));
    if (dictionary == m_dictionary && allCount == m_allCount && defaultCount == m_defaultCount)
        return;
    if (dictionary != nullptr)
        CFRetain(dictionary);
    if (m_dictionary != nullptr)
        CFRelease(m_dictionary);
    m_dictionary = dictionary;
    m_allCount = allCount;
    m_defaultCount = defaultCount;
    m_isRead = false;
}

/// As many as there were when they were registered: an array may have grown since.
void Registration::readNames() const
{
    m_enabled = setOf(stringsIn(namesIn(m_dictionary, CFSTR("AllNotifications")), m_allCount));
    if (const CFArrayRef enabled = namesIn(m_dictionary, CFSTR("DefaultNotifications")))
        m_enabled.intersect(setOf(stringsIn(enabled, m_defaultCount)));
    m_isRead = true;
}

} // namespace zepa::growl
