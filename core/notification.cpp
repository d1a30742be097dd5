// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"

ZepaNotification::ZepaNotification(const QString& id_, const QString& name_, const QString& extra_,
                                   const QString& description_)
    : id(id_), name(name_), extra(extra_), description(description_)
{}

ZepaNotification::~ZepaNotification() = default;
