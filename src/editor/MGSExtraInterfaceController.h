#pragma once

#include <QMenu>
#include <QPointer>

class SMLTextView;
struct MGSColourValue;

/// The extra menu and the sheets of a text view: Entab, Detab and Go to Line, each with a number
/// field, a confirming and a cancelling button, and Change Color. Owned by the text view; main
/// thread.
class MGSExtraInterfaceController
{
public:
    explicit MGSExtraInterfaceController(SMLTextView *textView) : m_textView(textView) {}
    ~MGSExtraInterfaceController();
    Q_DISABLE_COPY_MOVE(MGSExtraInterfaceController)

    /// The commands of the code editor as a menu, with keys for some; made on first use and the
    /// text view's. May stand in a window's menu bar as well.
    QMenu *contextMenu();

    // Opens the sheet on the text view's window and comes back at once; one at a time.
    void showEntab();
    void showDetab();
    void showGoToLine();
    void showColours(const MGSColourValue &value); ///< To change it to another.

private:
    struct Sheet;
    void show(const Sheet &sheet);

    SMLTextView *m_textView;
    QMenu *m_contextMenu = nullptr;
    QPointer<QWidget> m_sheet;
};
