#pragma once

#include "library/checking/LSMLiveCheck.h"
#include <QPointer>
#include <QTimer>
#include <QToolButton>

class LSMDesignTemplate;
class LSMDesignTemplateManager;
class LSMFindingsView;
class MGSFragariaView;

/// Checks the design in the code editor while it is being edited, half a second after the last key,
/// and shows what was found: in the editor, in the list below it, and as a count for the status
/// line. Built-in designs, which cannot be edited, are not checked. The user defaults `checksHtml`
/// and `showsFindings` switch it and the list.
///
/// Owned by the design editor; borrows all that it is given. Main thread.
class LSMDesignChecking : public QObject
{
    Q_OBJECT

public:
    LSMDesignChecking(MGSFragariaView *editor, LSMFindingsView *list,
                      const LSMDesignTemplateManager *manager, QObject *parent);
    ~LSMDesignChecking() override;

    /// Whose HTML the editor shows, or null. A new one is checked at once.
    void setDesignTemplate(LSMDesignTemplate *design);

    bool isEnabled() const;
    void setEnabled(bool enabled);
    bool showsFindings() const; ///< In the list, once there are any.
    void setShowsFindings(bool shows);
    void toggleList(); ///< Brings it, with the keyboard in it; hides it where that is in it.

    /// Selects what is found next behind the caret, or before it, round the ends of the text.
    void goToNext();
    void goToPrevious();

    const LSMFindings &findings() const { return m_findings; } ///< Those of the last check.

    /// For the status line, which takes it over: tells the count, shows and hides the list.
    QToolButton *countButton() const { return m_countButton; }

Q_SIGNALS:
    void findingsDidChange();
    void sightWasAskedFor(); ///< By a command: the editor and the list are to come in sight.

private:
    void textDidChange();
    void check();
    void setFindings(const LSMFindings &findings);
    LSMFindings clashes() const;
    void updateList();
    bool hasListTheKeyboard() const; ///< While a menu is open, too.
    void hideList();
    void updateGutter();
    void goTo(const LSMFinding &finding);
    LSMFindings placedFindings() const;
    qsizetype indexOf(const LSMFinding &finding) const; ///< In the text; NotFound beyond it.
    void settingDidChange(const QString &key);

    MGSFragariaView *m_editor;
    LSMFindingsView *m_list;
    const LSMDesignTemplateManager *m_manager;
    QPointer<LSMDesignTemplate> m_design;
    QPointer<QToolButton> m_countButton;
    LSMLiveCheck m_liveCheck;
    QTimer m_delay;
    LSMFindings m_findings;
};
