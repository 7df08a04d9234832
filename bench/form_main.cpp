// SPDX-License-Identifier: MIT
// The least that a program does to show an interface file: the baseline of the wizard's start.
//
//   bench_form FILE
#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <QWidget>
#include <memory>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        return 64;
    // As in the wizard: the loader takes no plugins from Designer's folders.
    const auto paths = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    QUiLoader loader;
    QCoreApplication::setLibraryPaths(paths);
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly))
        return 66;
    const std::unique_ptr<QWidget> window(loader.load(&file));
    if (window == nullptr)
        return 66;
    window->show();
    return QApplication::exec();
}
