// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <QCache>
#include <QDateTime>
#include <QString>

#include <memory>

#include <sys/types.h>

class QFileInfo;
class QPixmap;

/// Picture files as Growl takes them: each is loaded and encoded once, and again when the file has changed.
class PictureCache
{
public:
    /// Makes new data from a picture; null for a null picture.
    using Encode = CFDataRef (*)(const QPixmap& picture);

    /// What is kept in bytes. The least recently used pictures go first.
    static constexpr qsizetype byteLimit = qsizetype(8) * 1024 * 1024;
    /// Of larger pictures the newest is kept as well, up to this size in bytes: to encode a photograph takes seconds.
    static constexpr qsizetype largestKept = qsizetype(64) * 1024 * 1024;

    explicit PictureCache(Encode encode) : encodePicture(encode), pictures(byteLimit) {}

    /// The encoded picture in the file at `path`, a reference for the caller to give up; null when there is none that
    /// can be read.
    CFDataRef picture(const QString& path);

private:
    /// What changes when the content that a path leads to does.
    struct State
    {
        qint64 size = 0;
        QDateTime modified;
        QDateTime changed; ///< also when the one before was set back
        dev_t device = 0;  ///< with the number of the file on it: links lead from one file to another
        ino_t number = 0;

        friend bool operator==(const State&, const State&) = default;
    };
    struct Entry
    {
        Entry(CFDataRef data, State state) : encoded(data), file(std::move(state)) {}
        ~Entry() { CFRelease(encoded); }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

        CFDataRef encoded;
        State file;
    };

    const Entry* known(const QString& path) const;
    void keep(const QString& path, std::unique_ptr<Entry> entry);
    void forget(const QString& path);
    static State stateOf(const QFileInfo& file);
    static bool isSettled(const State& state);

    const Encode encodePicture;
    QCache<QString, Entry> pictures;
    QString largePath;
    std::unique_ptr<Entry> large; ///< the newest above byteLimit, from largePath
};
