// SPDX-License-Identifier: Apache-2.0
#include <QApplication>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

#ifdef ZEPA_COVERAGE
#include <csignal>
#include <cstdlib>

namespace {

/// What ran before a trap is counted at the orderly end of a process only, and each library counts for itself. For a
/// test of misuse any end but success will do.
void endInOrder(int /*signal*/)
{
    std::exit(EXIT_FAILURE); // NOLINT(bugprone-signal-handler,cert-sig30-c,cert-msc54-cpp): the trap is our own
}

} // namespace
#endif

#ifdef __SANITIZE_ADDRESS__
/// Some test programs hold pieces of libzepa_platform a second time, to look at what it hides; their own come first.
extern "C" Q_DECL_EXPORT const char*
__asan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name for it
{
    return "detect_odr_violation=0";
}
#endif

/// Every test program runs with an application object, as a client does. The folders that the build names as the
/// test's home are made here, so that nothing is ever written into the real one.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        QDir().mkpath(qEnvironmentVariable(name, u"."_s));
    QFile::setPermissions(qEnvironmentVariable("XDG_RUNTIME_DIR"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
#ifdef ZEPA_COVERAGE
    static_cast<void>(std::signal(SIGABRT, endInOrder));
#endif
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
