// SPDX-License-Identifier: MIT
// A plugin that the environment loads into any program of the window toolkit. It ends the program
// after the first paint of its first window, so that start and memory are measured on the
// unchanged program.
#include <QEvent>
#include <QGenericPlugin>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <cstdlib>

class FirstPaint : public QObject {
public:
    FirstPaint() { QCoreApplication::instance()->installEventFilter(this); }

    // This filter runs before the window handles the event and paints; the timer fires after that.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* window = qobject_cast<QWindow*>(watched);
        if (event->type() == QEvent::Expose && window != nullptr && window->isExposed())
            QTimer::singleShot(0, [] { std::_Exit(0); });
        return false;
    }
};

class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")

public:
    QObject* create(const QString&, const QString&) override { return new FirstPaint; }
};

#include "FirstPaint.moc"
