// The pages of a report one below the other, as on a desk. Paints only what is seen, and finds the rest of
// the pages while nobody waits for it.
#pragma once

#include <memory>
#include <QAbstractScrollArea>
#include <QTimer>

class ReportPages;

class ReportView final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit ReportView(QWidget *parent = nullptr);

    void setPages(std::shared_ptr<ReportPages> pages);
    const std::shared_ptr<ReportPages> &pages() const { return pages_; }

    // The page that takes up most of the window's upper half, counted from 0.
    int page() const;
    void goTo(int page);

    double zoom() const { return zoom_; } // 1 is the size on paper
    void zoomBy(double factor);
    // These hold while the window changes its size, until another zoom is chosen.
    void fitWidth();
    void wholePage();

Q_SIGNALS:
    void pageChanged(int page);
    void pagesFound(int pages, bool all);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    enum Fit { Free, Width, Whole };

    void findMore();
    void setZoom(double zoom, Fit fit);
    void refit();
    void arrange();
    double pixelsPerTwip() const;
    QSize pageSize() const; // in pixels
    int stride() const;     // from one page to the next

    std::shared_ptr<ReportPages> pages_;
    QTimer finding_;
    Fit fit_ = Whole;
    double zoom_ = 1;
};
