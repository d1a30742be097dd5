// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// A disk of 64 KiB, sixteen blocks, for this process alone, until the object goes. Without rights of an administrator,
/// the process becomes one in a namespace of its own, which works as long as it has a single thread.
class SmallDisk
{
public:
    SmallDisk() = default;
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    /// Mounts it at `folder`. Returns why that cannot be done; empty when it is done.
    QString mountAt(const QString& folder);
    /// Takes all the room that is left, with the file "filler".
    void fill() const;

private:
    QString m_folder;
};
