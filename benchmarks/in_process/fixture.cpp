// SPDX-License-Identifier: Apache-2.0
#include "fixture.h"

#include "benchmarks/remembered_postings.h"
#include "core/repeat_rule.h"

#include <QHash>
#include <QTime>

using namespace Qt::StringLiterals;

Fixture::Fixture() : m_settings(m_folder.path())
{
    // Nothing is forgotten while something is measured.
    m_settings.store(ZepaRepeatRule::setting({}, {}, {}), u"300"_s);
    m_module.reset(ZepaNotificationModule::getInstance());
    m_module->installNotificationMethod(&m_idle);
}

void Fixture::registerTypes(int count)
{
    for (int i = 0; i < count; ++i)
        m_module->registerNotification(typeId(i), u"Type %1"_s.arg(i), QString(), QString());
}

void Fixture::post(const QString& id, const QString& title)
{
    m_module->postNotification(id, title, u"Shall we have lunch together at noon?"_s, QString(), QString(),
                               ZepaPluginAction(), {});
}

void Fixture::rememberPostings(int count)
{
    QHash<QString, QTime>& table = rememberedPostings(*m_module);
    table.reserve(count);
    for (int i = 0; i < count; ++i)
        table.insert(u"message_receivedPosting number %1"_s.arg(100'000 + i), QTime::currentTime());
}

void Fixture::forgetPostings()
{
    rememberedPostings(*m_module).clear();
}
