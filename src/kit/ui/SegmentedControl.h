#pragma once

#include <QWidget>

namespace zq {

/// A row of joined segments of which at most one is selected. Its action and target are those of
/// kit/ui/TargetAction.h. Keyboard: Left, Right, Home and End select. Segments are counted from 0.
/// Main thread.
class SegmentedControl : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentedControl(QWidget *parent = nullptr);
    explicit SegmentedControl(const QStringList &labels, QWidget *parent = nullptr);

    int segmentCount() const;
    void setSegmentCount(int count); ///< New ones are empty; the last go.

    int selectedSegment() const;          ///< -1: none.
    void setSelectedSegment(int segment); ///< -1 selects none; a number out of range does nothing.

    void setLabel(int segment, const QString &label); ///< The segment must exist.

Q_SIGNALS:
    void selectedSegmentDidChange(int segment);
    void activated(int segment); ///< By the user, also when it was selected before.

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Segment;
    void select(int segment);
    void selectByKey(int segment);

    QList<Segment *> m_segments;
    int m_selected = -1;
};

} // namespace zq
