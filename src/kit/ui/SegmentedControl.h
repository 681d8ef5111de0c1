#pragma once

#include <QIcon>
#include <QWidget>

namespace zq {

/// A row of joined segments of which at most one is selected. Each has a label or an icon and a
/// tag; the action and target of the whole are those of kit/ui/TargetAction.h. Keyboard: Left,
/// Right, Home and End select. Segments are counted from 0. Main thread.
class SegmentedControl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int segmentCount READ segmentCount WRITE setSegmentCount)
    Q_PROPERTY(int selectedSegment READ selectedSegment WRITE setSelectedSegment NOTIFY
                   selectedSegmentDidChange)

public:
    explicit SegmentedControl(QWidget *parent = nullptr);
    explicit SegmentedControl(const QStringList &labels, QWidget *parent = nullptr);

    int segmentCount() const;
    void setSegmentCount(int count); ///< New ones are empty, with their index as tag; the last go.

    int selectedSegment() const;          ///< -1: none.
    void setSelectedSegment(int segment); ///< -1 selects none; a number out of range does nothing.
    bool selectSegmentWithTag(int tag);   ///< False if no segment has it.
    int selectedTag() const;              ///< -1: none selected.

    /// The segment must exist in all of these.
    QString label(int segment) const;
    void setLabel(int segment, const QString &label);
    void setImage(int segment, const QIcon &image); ///< Its accessible name is the tool tip.
    void setSegmentToolTip(int segment, const QString &text);
    int segmentTag(int segment) const;
    void setSegmentTag(int segment, int tag);
    bool isSegmentEnabled(int segment) const;
    void setSegmentEnabled(int segment, bool enabled);

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
    void selectNextEnabled(int from, int step);

    QList<Segment *> m_segments;
    int m_selected = -1;
};

} // namespace zq
