// SPDX-License-Identifier: Apache-2.0
#include "bus/object_table.h"

#include "bus/connection_core.h"

#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::bus {

namespace {

constexpr const char* introspectionHead =
    R"(<!DOCTYPE node PUBLIC "-//freedesktop//DTD D-BUS Object Introspection 1.0//EN"
"http://www.freedesktop.org/standards/dbus/1.0/introspect.dtd">
<node>
 <interface name="org.freedesktop.DBus.Peer">
  <method name="Ping"/>
  <method name="GetMachineId">
   <arg type="s" name="machine_uuid" direction="out"/>
  </method>
 </interface>
 <interface name="org.freedesktop.DBus.Introspectable">
  <method name="Introspect">
   <arg name="xml_data" type="s" direction="out"/>
  </method>
 </interface>
)";

constexpr const char* propertiesInterface = R"( <interface name="org.freedesktop.DBus.Properties">
  <method name="Get">
   <arg name="interface_name" direction="in" type="s"/>
   <arg name="property_name" direction="in" type="s"/>
   <arg name="value" direction="out" type="v"/>
  </method>
  <method name="GetAll">
   <arg name="interface_name" direction="in" type="s"/>
   <arg name="props" direction="out" type="a{sv}"/>
  </method>
  <method name="Set">
   <arg name="interface_name" direction="in" type="s"/>
   <arg name="property_name" direction="in" type="s"/>
   <arg name="value" direction="in" type="v"/>
  </method>
 </interface>
)";

} // namespace

std::shared_ptr<void> ObjectTable::add(const QByteArray& path, const QByteArray& introspection,
                                       std::function<void(const Message&)> handler)
{
    auto object = std::make_shared<Object>(Object{introspection, std::move(handler)});
    m_objects[path] = object;
    const auto end = [path, object, core = m_core.weak_from_this()](void*) {
        const auto living = core.lock();
        if (!living)
            return;
        auto& objects = living->objects().m_objects;
        // Another may be there by now.
        const auto found = objects.find(path);
        if (found != objects.end() && found->second == object)
            objects.erase(found);
    };
    return {static_cast<void*>(object.get()), end};
}

void ObjectTable::dispatch(const Message& call)
{
    const auto found = m_objects.find(QByteArray(call.path().data(), call.path().size()));
    if (answerForObject(call, found != m_objects.end()))
        return;
    if (found == m_objects.end()) {
        m_core.send(m_core.newError(call, "org.freedesktop.DBus.Error.UnknownObject",
                                    u"Unknown object '%1'."_s.arg(call.path())));
        return;
    }
    const std::shared_ptr<Object> object = found->second;
    object->handler(call);
}

bool ObjectTable::answerForObject(const Message& call, bool isExported)
{
    const QByteArray path(call.path().data(), call.path().size());
    const QByteArray children = childrenOf(path);
    if (!isExported && children.isEmpty())
        return false;
    if (call.interface() == QLatin1StringView("org.freedesktop.DBus.Introspectable") &&
        call.member() == QLatin1StringView("Introspect")) {
        QByteArray xml = introspectionHead;
        if (isExported)
            xml += propertiesInterface + m_objects.at(path)->introspection + '\n';
        m_core.send(m_core.newReply(call).append((xml + children + "</node>\n").constData()));
        return true;
    }
    if (!isExported || call.interface() != QLatin1StringView("org.freedesktop.DBus.Properties"))
        return false;
    if (call.member() == QLatin1StringView("GetAll") && call.signature() == QLatin1StringView("s"))
        m_core.send(m_core.newReply(call).openArray("{sv}").close());
    else if (call.member() == QLatin1StringView("Get") || call.member() == QLatin1StringView("Set"))
        m_core.send(
            m_core.newError(call, "org.freedesktop.DBus.Error.UnknownProperty", u"Unknown interface or property."_s));
    else
        m_core.send(
            m_core.newError(call, "org.freedesktop.DBus.Error.UnknownMethod", u"Unknown method or wrong arguments."_s));
    return true;
}

QByteArray ObjectTable::childrenOf(const QByteArray& path) const
{
    const QByteArray prefix = path.endsWith('/') ? path : path + '/';
    std::set<QByteArray> names;
    for (const auto& [other, object] : m_objects) {
        if (other.size() > prefix.size() && other.startsWith(prefix))
            names.insert(other.mid(prefix.size()).split('/').constFirst());
    }
    QByteArray elements;
    for (const QByteArray& name : names)
        elements += " <node name=\"" + name + "\"/>\n";
    return elements;
}

} // namespace zepa::bus
