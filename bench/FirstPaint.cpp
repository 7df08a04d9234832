// Loaded into any program of the window toolkit by its environment: ends it as soon as its first
// window has been painted, so that start and memory are measured without a change to the program.
#include <QEvent>
#include <QGenericPlugin>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <cstdlib>

class FirstPaint : public QObject {
public:
    FirstPaint() { QCoreApplication::instance()->installEventFilter(this); }

    // A window paints itself while it handles the event that is seen here before; the timer comes
    // after that.
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
