// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>

namespace zepa::bus {

/// The objects that others may call. What every object has is answered here: who is there, which properties (none).
class ObjectTable
{
public:
    explicit ObjectTable(ConnectionCore& core) : m_core(core) {}

    std::shared_ptr<void> add(const QByteArray& path, const QByteArray& introspection,
                              std::function<void(const Message&)> handler);
    /// Answers the call, or hands it to the object's handler.
    void dispatch(const Message& call);

private:
    struct Object
    {
        QByteArray introspection;
        std::function<void(const Message&)> handler;
    };

    bool answerForObject(const Message& call, bool isExported);
    /// The names of the nodes right below `path`, as elements.
    QByteArray childrenOf(const QByteArray& path) const;

    ConnectionCore& m_core;
    std::map<QByteArray, std::shared_ptr<Object>> m_objects;
};

} // namespace zepa::bus
