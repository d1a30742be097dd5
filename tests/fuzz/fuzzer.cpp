// SPDX-License-Identifier: Apache-2.0
// One fuzzer; ZEPA_FUZZED is the function that it calls.
#include "entries.h"

#include <QApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives as long as the process, which ends in the fuzzer's own way.
    static QApplication* const app = new QApplication(*argc, *argv);
    Q_UNUSED(app)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    zepa::fuzz::ZEPA_FUZZED(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
