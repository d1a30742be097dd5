// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// What reads bytes and texts of strangers, each behind a function that takes any bytes. The fuzzers call them with
/// bytes that they invent, the unit test with those that are kept in corpus/.
namespace zepa::fuzz {

struct Entry
{
    const char* name;
    /// Ends the process when something that must hold does not.
    void (*run)(const QByteArray& input);
};

/// All of them. Names are those of the folders in corpus/.
const std::vector<Entry>& entries();

void readRuleFile(const QByteArray& input);
void writeBusText(const QByteArray& input);
void showChatText(const QByteArray& input);
void postPopup(const QByteArray& input);
void readScriptFile(const QByteArray& input);
void readSoundFile(const QByteArray& input);

/// Says what does not hold, and ends the process. Not Q_ASSERT, which a release build leaves out.
void require(bool holds, const char* what);
/// The bytes as UTF-16, so that every unit can come, halves of characters too.
QString asUtf16(const QByteArray& bytes);

} // namespace zepa::fuzz
