// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <utility>

namespace zepa {

/// Which methods were called. The library tells nobody whether it dropped a posting: who wants to know installs a
/// WatchedMethod around each method and looks here after posting.
class DeliveryLog
{
public:
    void delivered(const QString& methodId) { m_methods.append(methodId); }
    /// The methods called since the last take(), in the order of the calls; one with two rules stands here twice.
    QStringList take() { return std::exchange(m_methods, {}); }

private:
    QStringList m_methods;
};

} // namespace zepa
