#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QCoreApplication>

#include <functional>

class KRErrorHistory;
class KRMapComposition;
class KRMapGround;
class QImage;
class QPagedPaintDevice;
class QPrinter;
class QWidget;

/**
 * Prints the map onto one page, whichever way round that is.
 */
class KRMapPrinter
{
    Q_DECLARE_TR_FUNCTIONS(KRMapPrinter)

public:
    /// @param shownArea what is seen on the page at least; without it the area of the tracks is
    /// @param ground is not owned; nullptr for none
    KRMapPrinter(const KRGPXTrackSelection &selection, const KRGeoPositionRect &shownArea, KRMapGround *ground);

    /// What the print job and the document are called.
    void setTitle(const QString &title) { m_title = title; }
    void setLegend(bool isPrinted) { m_hasLegend = isPrinted; }
    void setLabels(bool isPrinted) { m_hasLabels = isPrinted; }

    /// Shows the page in a preview, from which the user may print it. Nothing when there is nothing to be seen.
    void preview(QWidget *window) const;

    /// Fills the printable part of the page. Where it is printed to a file, that is written whole or not at all, and
    /// only if @p goesOn says so when the page is done. May be called in any thread.
    void paint(QPrinter *printer, KRErrorHistory *history, const std::function<bool()> &goesOn) const;

private:
    /// What the preview shows of a map of so many pixels. False when the user has cancelled it and does not want what
    /// there is.
    bool draw(QImage *picture, const QSize &size, QWidget *window) const;
    static void show(const QImage &picture, QPrinter *printer);
    void print(QPrinter *printer, QWidget *window, KRErrorHistory *history) const;
    KRMapComposition composition(const QSize &size) const;
    bool paintPage(QPagedPaintDevice *page, int dotsPerInch) const;
    bool isLandscape() const;

    KRGPXTrackSelection m_selection;
    KRGeoPositionRect m_area;
    KRMapGround *m_ground;
    QString m_title;
    bool m_hasLegend = false;
    bool m_hasLabels = false;
};
