// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

/// Files that are replaced as a whole or not at all, whatever ends the process or the machine meanwhile.
namespace zepa {

/// A small file as it was found.
struct StoredFile
{
    enum class State {
        Missing,
        Readable,
        /// A regular file above ZepaRuleDocument::largestProtected.
        TooLarge,
        /// A folder, a device, or not to be read: none of our business.
        Foreign
    };

    State state = State::Missing;
    QByteArray content;
    /// The name is a symbolic link to the file.
    bool isLink = false;
    /// Its permission bits.
    unsigned int mode = 0;
};

/// Reads it whole; follows links. Never waits, whatever stands under that name.
StoredFile readStored(const QString& path);
/// Whether anything has that name, a link to nowhere included.
bool existsStored(const QString& path);

/// Puts `content` in the place of `path`: written to `aside`, a path on the same file system, synced, renamed, and the
/// folder synced. False when that did not work; the file is as it was then, and `aside` is gone.
bool replaceStored(const QString& path, const QByteArray& content, const QString& aside, unsigned int mode);
/// Writes through a link, which stays one. Not in one step: a copy must be at hand until it returned true.
bool overwriteStored(const QString& path, const QByteArray& content);

/// Gives `to` to the file `from`, which may be replaced by that, and syncs both folders.
bool renameStored(const QString& from, const QString& to);
/// Brings a file that someone else wrote to the disk, and its name in the folder.
bool syncStored(const QString& path);

/// Takes the rights of everybody but the owner away from a file or folder of this user. Links are left alone.
void makePrivateStored(const QString& path);

} // namespace zepa
