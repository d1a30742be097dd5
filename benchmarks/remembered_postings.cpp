// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/remembered_postings.h"

#include "core/notification_module.h"

namespace {

/// An explicit instantiation may name private members: this is how a function outside gets at one.
QHash<QString, QTime>& reach(ZepaNotificationModule& module);

template <QHash<QString, QTime> ZepaNotificationModule::*member>
struct Reach
{
    friend QHash<QString, QTime>& reach(ZepaNotificationModule& module) { return module.*member; }
};

template struct Reach<&ZepaNotificationModule::lastPostings>;

} // namespace

QHash<QString, QTime>& rememberedPostings(ZepaNotificationModule& module)
{
    return reach(module);
}
