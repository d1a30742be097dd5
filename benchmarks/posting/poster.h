// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

/// One way of posting a pop-up, as one competitor does it. Every competitor is a program of its own; see runPoster().
class Poster
{
public:
    Poster() = default;
    virtual ~Poster() = default;
    Poster(const Poster&) = delete;
    Poster& operator=(const Poster&) = delete;

    /// Everything that a program does once before its first posting.
    virtual void start() = 0;
    /// Brings the texts and the icon's path (empty for none) into the form in which a caller would hold them.
    virtual void prepare(const std::string& title, const std::string& text, const std::string& icon) = 0;
    /// The call that is measured: posts what was prepared.
    virtual void post() = 0;
    /// Runs the program's event loop for that long.
    virtual void settle(int microseconds) = 0;
    /// Back to a state in which no earlier posting is remembered.
    virtual void refresh() {}
};

/// Starts the poster and obeys the driver, a command a line of standard input, each answered by one line:
///
///   icons PATH...            the pictures of the postings from now on, in turn; none for no picture
///   post COUNT MICROSECONDS  posts so often, and runs the event loop for that long after each
///   refresh                  calls Poster::refresh()
///   stream COUNT MICROSECONDS
///                            posts so often without a word in between, running the event loop for that long after
///                            each unless it is 0, and calls Poster::refresh() every ten
///   settle MICROSECONDS      runs the event loop for that long
///   processor                asks what the process has used
///
/// The first line printed is "ready NANOSECONDS", what start() took. The answer to "post" holds a word for each
/// posting, "BEGIN:CALL:BUSY": when it began on the system's monotonic clock, how long the caller waited for the call,
/// and how much processor time its thread used until the event loop had run; all in nanoseconds. The answer to "stream"
/// is "BEGIN WAITED": when the first one began, and how long the caller waited for all calls together; to "processor"
/// the processor time of all threads so far. Returns at the end of input.
int runPoster(Poster& poster);
