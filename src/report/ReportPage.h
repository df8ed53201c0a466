// What stands on one page and where, in twips from the sheet's corner, in the order in which it is drawn.
// Knows nothing of definition and records: whoever holds a page can ask it, or draw it, without the report.
#pragma once

#include <functional>
#include <QByteArray>
#include <QFont>
#include <QLineF>
#include <QRectF>
#include <QStringList>
#include <variant>
#include <vector>

class QPainter;

class ReportPage
{
public:
    enum Medium { OnScreen, OnPaper };

    struct Text { // one line
        QString line;
        QRectF area; // as wide as the line, as high as the font's lines stand apart
        double baseline = 0;
        QFont font; // of as many pixels as it has twips
        unsigned colour = 0;
    };
    // A file, or what stands in for it, undistorted at the top right of the area and no larger than a screen
    // would show it. Looked at when it is drawn.
    struct Picture {
        QString file;
        QString fallback; // empty: nothing
        QRectF area;
        std::function<QByteArray()> held; // bytes that take the place of the file, where there are some
    };
    struct Stroke {
        QLineF line;
        double thickness = 0;
        unsigned colour = 0;
    };
    struct Frame {
        QRectF area;
        double thickness = 0;
        unsigned colour = 0;
    };
    struct Item {
        std::variant<Text, Picture, Stroke, Frame> what;
        bool screenOnly = false;
    };

    std::vector<Item> items;
    // Lines of text for which there was no room: they stand nowhere.
    QStringList lost;

    // The lines of text alone.
    std::vector<Text> texts() const;
    QStringList lines() const;

    // On a painter whose unit is the twip and whose origin is the sheet's corner.
    void paint(QPainter &painter, Medium medium) const;
};
