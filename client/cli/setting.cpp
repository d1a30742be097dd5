// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/job.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "kit/settings/global_settings.h"
#include "kit/values/field_value.h"

#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

/// While another process changes the file.
constexpr std::chrono::milliseconds longestWait{2000};
constexpr std::chrono::milliseconds timeBetweenAttempts{20};

/// The setting of that name with its current value; nothing, after a message, when there is none.
std::optional<ZepaField> findSetting(Client& client, const QString& id)
{
    QStringList ids;
    const QList<ZepaField> all = globalSettings();
    for (const ZepaField& setting : all) {
        if (setting.getId() == id)
            return client.settings().readGlobalSetting(setting);
        ids.append(setting.getId());
    }
    printError(u"unknown setting \"%1\"; settings are: %2"_s.arg(onOneLine(id), ids.join(u", "_s)));
    return std::nullopt;
}

class SettingGet final : public Command
{
public:
    QString name() const override { return u"setting get"_s; }
    QString arguments() const override { return u"[NAME] [--json]"_s; }
    QString summary() const override
    {
        return u"Shows a setting that applies to all events; without a name, all of them."_s;
    }
    QString example() const override { return u"zepa setting get duplicated_notifications_time"_s; }
    QList<QCommandLineOption> options() const override
    {
        return {{u"json"_s, u"for programs: an array of objects with id, value, allowed"_s}};
    }
    qsizetype fewestArguments() const override { return 0; }
    qsizetype mostArguments() const override { return 1; }

    int run(const QCommandLineParser& line, Client& client) const override
    {
        QList<ZepaField> wanted;
        if (!line.positionalArguments().isEmpty()) {
            const auto setting = findSetting(client, line.positionalArguments().constFirst());
            if (!setting)
                return WrongUsage;
            if (!line.isSet(u"json"_s)) {
                say(setting->getText());
                return Success;
            }
            wanted.append(*setting);
        } else {
            const QList<ZepaField> all = globalSettings();
            for (const ZepaField& setting : all)
                wanted.append(client.settings().readGlobalSetting(setting));
        }

        QJsonArray json;
        QList<QStringList> rows;
        for (const ZepaField& setting : std::as_const(wanted)) {
            rows.append({setting.getId(), setting.getText(), allowedValues(setting)});
            json.append(QJsonObject{
                {u"id"_s, setting.getId()}, {u"value"_s, jsonValue(setting)}, {u"allowed"_s, allowedJson(setting)}});
        }
        sayRows({u"SETTING"_s, u"VALUE"_s, u"ALLOWED"_s}, rows, json, line.isSet(u"json"_s));
        return Success;
    }
};

class SettingSet final : public Command
{
public:
    QString name() const override { return u"setting set"_s; }
    QString arguments() const override { return u"NAME VALUE"_s; }
    QString summary() const override { return u"Changes a setting that applies to all events."_s; }
    QString example() const override { return u"zepa setting set duplicated_notifications_time 30"_s; }
    bool changesSettings() const override { return true; }
    qsizetype fewestArguments() const override { return 2; }
    qsizetype mostArguments() const override { return 2; }

    void start(const QCommandLineParser& line, Client& client, Job& job) const override
    {
        const auto setting = findSetting(client, line.positionalArguments().at(0));
        if (!setting)
            return job.finish(WrongUsage);
        const QString value = line.positionalArguments().at(1);
        if (!fieldAllows(*setting, value)) {
            printError(u"invalid value \"%2\" for %1; must be %3"_s.arg(setting->getId(), onOneLine(value),
                                                                        allowedValues(*setting)));
            return job.finish(WrongUsage);
        }
        store(client.settings(), *setting, value, job, QDeadlineTimer(longestWait));
    }

private:
    /// By a timer and not by waiting: this may be the program with the windows.
    static void store(Settings& settings, const ZepaField& setting, const QString& value, Job& job,
                      QDeadlineTimer deadline)
    {
        const SettingStore::Outcome stored = settings.tryToStore(setting, value);
        if (stored == SettingStore::Outcome::Done)
            return job.finish(Success);
        if (stored == SettingStore::Outcome::Busy && !deadline.hasExpired()) {
            QTimer::singleShot(timeBetweenAttempts, &job, [&settings, setting, value, &job, deadline] {
                store(settings, setting, value, job, deadline);
            });
            return;
        }
        job.speak([&settings, stored] {
            const QString file = onOneLine(settings.settingsFile());
            printError(stored == SettingStore::Outcome::Busy
                           ? u"another program is changing the settings file %1; nothing was changed. Try again "
                             u"in a moment"_s.arg(file)
                           : u"cannot write the settings file %1; nothing was changed. Check the file "
                             u"permissions or choose another folder with --settings"_s.arg(file));
        });
        job.finish(Failure);
    }
};

} // namespace

CommandPointer makeSettingGet()
{
    return std::make_unique<SettingGet>();
}

CommandPointer makeSettingSet()
{
    return std::make_unique<SettingSet>();
}

} // namespace zepa::cli
