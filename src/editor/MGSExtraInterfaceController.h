#pragma once

#include <QMenu>
#include <QPointer>

class SMLTextView;

/// The extra menu and the sheets of a text view: Entab, Detab and Go to Line, each with a number
/// field, a confirming and a cancelling button. Owned by the text view; main thread.
class MGSExtraInterfaceController
{
public:
    explicit MGSExtraInterfaceController(SMLTextView *textView) : m_textView(textView) {}
    ~MGSExtraInterfaceController();
    Q_DISABLE_COPY_MOVE(MGSExtraInterfaceController)

    /// The commands of the code editor as a menu on the text view; made on first use, kept.
    QMenu *contextMenu();

    // Opens the sheet on the text view's window and comes back at once; one at a time.
    void showEntab();
    void showDetab();
    void showGoToLine();

private:
    struct Sheet;
    void show(const Sheet &sheet);

    SMLTextView *m_textView;
    std::unique_ptr<QMenu> m_contextMenu;
    QPointer<QWidget> m_sheet;
};
