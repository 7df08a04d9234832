// SPDX-License-Identifier: MIT
#include "UI/Widgets/Aside.h"

#include <QEventLoop>
#include <cassert>
#include <system_error>
#include <thread>

void doAside(const std::function<void()>& work)
{
    assert(work);
    QEventLoop waiting;
    std::thread thread;
    try {
        thread = std::thread([&work, &waiting] {
            work();
            QMetaObject::invokeMethod(&waiting, "quit", Qt::QueuedConnection);
        });
    } catch (const std::system_error&) {
        work();
        return;
    }
    waiting.exec(); // returns early if the program shall quit; the work is still waited for
    thread.join();
}
