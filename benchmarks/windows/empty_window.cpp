// SPDX-License-Identifier: Apache-2.0
// What the main window's start is compared with: a Qt Widgets program that shows an empty window.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
