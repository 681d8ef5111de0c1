#pragma once

#include <QPointer>
#include <QWidget>

namespace platform {

class TextFinder;
class TextView;

/// Marks the matches of a finder in a text view: a pane over the view's viewport, which mouse and
/// keys go through. Owned by the viewport; borrows the finder. Looks only at what is in sight.
class FindMarks : public QWidget
{
    Q_OBJECT

public:
    FindMarks(TextView *view, const TextFinder *finder);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void cover();
    void paintLine(QPainter *painter, qsizetype line);

    TextView *m_view;
    QPointer<const TextFinder> m_finder;
};

} // namespace platform
