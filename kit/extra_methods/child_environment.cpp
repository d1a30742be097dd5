// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/child_environment.h"

#include <map>
#include <optional>

namespace zepa {

namespace {

/// By name, the value at first; nothing where there was none.
std::map<QByteArray, std::optional<QString>>& firstValues()
{
    static std::map<QByteArray, std::optional<QString>> values;
    return values;
}

} // namespace

void setOwnVariable(const char* name, const QByteArray& value)
{
    std::optional<QString> first;
    if (qEnvironmentVariableIsSet(name))
        first = qEnvironmentVariable(name);
    firstValues().try_emplace(name, first);
    qputenv(name, value);
}

bool isOwnVariable(const char* name)
{
    return firstValues().count(name) > 0;
}

QProcessEnvironment childEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : firstValues()) {
        if (value)
            environment.insert(QString::fromLatin1(name), *value);
        else
            environment.remove(QString::fromLatin1(name));
    }
    return environment;
}

} // namespace zepa
