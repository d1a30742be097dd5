// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(u"zepa"_s);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
