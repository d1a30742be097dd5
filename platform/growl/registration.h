// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Growl/Growl.h>
#include <zepa_platform/popups.h>

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

namespace zepa::growl {

/// What the application registered, in values of our own: its record may be gone when a pop-up is answered.
class Registration
{
public:
    using CallBack = void (*)(CFPropertyListRef clickContext);

    Registration() = default;
    ~Registration();
    Q_DISABLE_COPY_MOVE(Registration)

    /// Reads the record; null withdraws.
    void set(const Growl_Delegate* delegate);

    bool isSet() const { return m_set; }
    /// Changes with each withdrawal: who registers afterwards is somebody else.
    int generation() const { return m_generation; }
    bool isEnabled(const QString& name) const;
    QString applicationName() const { return m_applicationName; } ///< null when the record names none
    QByteArray iconData() const { return m_iconData; }            ///< null when the record has none
    CallBack clicked() const { return m_clicked; }                ///< null when nobody wants to know, as timedOut
    CallBack timedOut() const { return m_timedOut; }

    // Beside the record, and whether there is one or not.
    void setKind(const QString& name, const ZepaPopupKind& kind) { m_kinds.insert(name, kind); }
    ZepaPopupKind kind(const QString& name) const { return m_kinds.value(name); }
    void allowSound(bool isAllowed) { m_allowsSound = isAllowed; }
    bool allowsSound() const { return m_allowsSound; }

private:
    void setNames(CFDictionaryRef dictionary);
    void readNames() const;

    bool m_set = false;
    int m_generation = 0;
    QString m_applicationName;
    QByteArray m_iconData;
    CallBack m_clicked = nullptr;
    CallBack m_timedOut = nullptr;
    // Read when somebody asks: an application registers all its names anew for each one that it adds.
    mutable QSet<QString> m_enabled;
    mutable bool m_isRead = true;
    // Held so that no other dictionary gets its address: the same address then means the same names, unless the
    // arrays grew, which is all that can happen to them.
    CFDictionaryRef m_dictionary = nullptr;
    CFIndex m_allCount = 0;
    CFIndex m_defaultCount = 0;
    QHash<QString, ZepaPopupKind> m_kinds;
    bool m_allowsSound = false;
};

} // namespace zepa::growl
