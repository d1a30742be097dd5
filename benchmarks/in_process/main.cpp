// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("zepa"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
