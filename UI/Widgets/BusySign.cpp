// SPDX-License-Identifier: MIT
#include "UI/Widgets/BusySign.h"

#include <QPainter>
#include <QStyle>
#include <QTimerEvent>

namespace {

constexpr int kStepsOfTurn = 30; // a turn takes 1.5 seconds: busy, but not hectic
constexpr int kStepMilliseconds = 50;
constexpr int kWholeTurn = 360 * 16; // QPainter counts sixteenths of a degree
constexpr int kArc = kWholeTurn / 4;
constexpr double kRingShare = 0.13; // of the sign's width
constexpr double kTrackOpacity = 0.2;

} // namespace

BusySign::BusySign(QWidget* parent) : QProgressBar(parent)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void BusySign::startAnimation()
{
    m_isStarted = true;
    if (isVisible())
        m_timer.start(kStepMilliseconds, this);
}

void BusySign::stopAnimation()
{
    m_isStarted = false;
    m_timer.stop();
    update();
}

QSize BusySign::sizeHint() const
{
    const int edge = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    return {edge, edge};
}

void BusySign::paintEvent(QPaintEvent*)
{
    if (!m_isStarted)
        return;
    const double edge = std::min(width(), height());
    const double line = edge * kRingShare;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - edge) / 2, (height() - edge) / 2);
    const auto ring = QRectF(0, 0, edge, edge).adjusted(line, line, -line, -line);
    painter.setPen(QPen(palette().color(QPalette::WindowText), line, Qt::SolidLine, Qt::RoundCap));
    painter.setOpacity(kTrackOpacity);
    painter.drawEllipse(ring);
    painter.setOpacity(1);
    painter.setPen(QPen(palette().color(QPalette::Highlight), line, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -m_step * (kWholeTurn / kStepsOfTurn), kArc);
}

void BusySign::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QProgressBar::timerEvent(event);
        return;
    }
    m_step = (m_step + 1) % kStepsOfTurn;
    update();
}

void BusySign::showEvent(QShowEvent* event)
{
    QProgressBar::showEvent(event);
    if (m_isStarted)
        m_timer.start(kStepMilliseconds, this);
}

void BusySign::hideEvent(QHideEvent* event)
{
    m_timer.stop();
    QProgressBar::hideEvent(event);
}

#include "moc_BusySign.cpp"
