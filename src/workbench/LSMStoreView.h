#pragma once

#include <memory>
#include <QPointer>
#include <QWidget>

class LSMDesignTemplate;
class QLineEdit;

namespace Ui {
class LSMStoreView;
}

/// The store tab: whether the design is sold through the store, and what the store says of it. Its
/// fields are the strings of `designStore` in the design's dictionary; what is typed goes there at
/// once, an emptied field takes its key away. Other keys stay as they are, and so do values that
/// are no strings until something is typed in their place. Only paid custom designs are edited.
/// What cannot be meant is hinted at and never refused. Main thread.
class LSMStoreView : public QWidget
{
    Q_OBJECT

public:
    explicit LSMStoreView(QWidget *parent = nullptr);
    ~LSMStoreView() override;

    /// Shows the design (borrowed, null for none), or what has changed in it.
    void setDesign(LSMDesignTemplate *design);

Q_SIGNALS:
    void designStoreDataDidChange(); ///< By the user.

private:
    struct Field
    {
        QLatin1StringView key;
        QLineEdit *view;
    };

    void updateEnabling();
    void updateHints();
    QVariant value(QLatin1StringView key) const; ///< In `designStore`.
    void setText(QLatin1StringView key, const QString &text);
    QString description() const; ///< As it is shown, with the line ends that it came with.

    std::unique_ptr<Ui::LSMStoreView> m_ui;
    QList<Field> m_fields;
    QPointer<LSMDesignTemplate> m_design;
    bool m_isFilling = false; // by setDesign, not by the user
};
