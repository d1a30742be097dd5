// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/sound_check.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

SoundProbe& currentProbe()
{
    static SoundProbe probe = [](const QString& path) { return QFileInfo(path).isFile(); };
    return probe;
}

} // namespace

void setSoundProbe(SoundProbe probe)
{
    currentProbe() = std::move(probe);
}

void checkSound(const QString& path, QObject* context, std::function<void(bool plays)> done)
{
    // Shared, since the pool copies what it runs.
    const auto promise = std::make_shared<QPromise<bool>>();
    auto* watcher = new QFutureWatcher<bool>(context);
    QObject::connect(watcher, &QFutureWatcher<bool>::finished, context, [watcher, done = std::move(done)] {
        done(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(promise->future());
    QThreadPool::globalInstance()->start([path, promise, probe = currentProbe()] {
        promise->start();
        promise->addResult(probe(path));
        promise->finish();
    });
}

QStringList soundNamePatterns()
{
    return {u"*.wav"_s, u"*.ogg"_s, u"*.oga"_s, u"*.flac"_s, u"*.aiff"_s, u"*.aif"_s, u"*.au"_s, u"*.mp3"_s};
}

} // namespace zepa
