// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/recorded_methods.h"

#include "core/notification_module.h"
#include "kit/journal/announce.h"
#include "kit/rules/protected_module.h"
#include "kit/settings/settings.h"
#include "probe_method.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(RecordedMethods, SeeWhatAMethodOfTheClientsOwnIsCalledFor)
{
    const QTemporaryDir folder;
    const zepa::Settings settings(folder.path());
    ProbeMethod own(u"own_method"_s);
    own.setDefaultNotificationConfig(u"backup_finished"_s, {});
    QStringList prepared;
    zepa::RecordedMethods recorded;
    recorded.prepare(u"own_method"_s,
                     [&](const QList<ZepaArg>&) { prepared.append(QString::number(own.calls.size())); });
    zepa::ProtectedModule notifications({
        .types = {{.id = u"backup_finished"_s, .name = u"Backup finished"_s}},
        .methods = {&own},
        .wrapMethods = [&recorded](ZepaNotificationModule& module) { recorded.wrapIn(module); },
    });
    ASSERT_TRUE(notifications.start());
    EXPECT_EQ(notifications.module().getMethods().size(), 5);
    EXPECT_NE(notifications.module().getMethods().value(u"own_method"_s), &own);

    zepa::Posting posting;
    posting.type = u"backup_finished"_s;
    posting.title = u"Home folder"_s;
    const zepa::Report report = announce(recorded.recorder(notifications.module()), posting);
    EXPECT_EQ(report.methods(), QStringList{u"own_method"_s});
    ASSERT_EQ(own.calls.size(), 1);
    EXPECT_EQ(own.calls.constFirst().title, u"Home folder"_s);
    EXPECT_EQ(prepared, QStringList{u"0"_s});
    ASSERT_EQ(recorded.journal().rowCount(), 1);
    EXPECT_EQ(recorded.journal().entry(0).typeName, u"Backup finished"_s);
}

} // namespace
