#include "workbench/LSMDesignChecking.h"

#include "editor/MGSFragariaView.h"
#include "editor/MGSLineNumberView.h"
#include "editor/MGSTextStorageExtensions.h"
#include "editor/SMLTextView.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplateManager.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMFindingsView.h"
#include "workbench/LSMFindingTexts.h"

#include <ranges>

using namespace std::chrono_literals;
using platform::localized;
using platform::UserDefaults;

namespace {

constexpr auto delay = 500ms;
const QString checksKey = QStringLiteral("checksHtml");
const QString showsKey = QStringLiteral("showsFindings");

} // namespace

LSMDesignChecking::LSMDesignChecking(MGSFragariaView *editor, LSMFindingsView *list,
                                     const LSMDesignTemplateManager *manager, QObject *parent)
    : QObject(parent), m_editor(editor), m_list(list), m_manager(manager),
      m_countButton(new QToolButton(editor))
{
    m_countButton->setObjectName(QStringLiteral("findingsCountButton"));
    m_countButton->setAutoRaise(true);
    m_countButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_countButton->setToolTip(localized("Goes to the list of findings, or hides it"));
    connect(m_countButton, &QToolButton::clicked, this, &LSMDesignChecking::toggleList);
    m_delay.setSingleShot(true);
    m_delay.setTimerType(Qt::PreciseTimer);
    connect(&m_delay, &QTimer::timeout, this, &LSMDesignChecking::check);
    connect(m_editor->textView()->layoutManager(), &SMLLayoutManager::didProcessEditing, this,
            &LSMDesignChecking::textDidChange);
    connect(&m_liveCheck, &LSMLiveCheck::didCheck, this, [this](const LSMFindings &findings) {
        LSMFindings all = clashes();
        all.insert(all.end(), findings.begin(), findings.end());
        if (all != m_findings)
            setFindings(all);
    });
    connect(m_list, &LSMFindingsView::findingWasChosen, this, &LSMDesignChecking::goTo);
    connect(m_list, &LSMFindingsView::closeWasAskedFor, this, [this] { setShowsFindings(false); });
    connect(&UserDefaults::standardUserDefaults(), &UserDefaults::didChange, this,
            &LSMDesignChecking::settingDidChange);
    updateGutter();
    setFindings({});
}

LSMDesignChecking::~LSMDesignChecking() = default;

void LSMDesignChecking::setDesignTemplate(LSMDesignTemplate *design)
{
    if (design == m_design)
        return;
    if (m_design)
        m_design->templateDictionary()->disconnect(this);
    m_design = design;
    if (design)
        connect(design->templateDictionary().get(), &platform::ObservableDictionary::valueChanged,
                this, &LSMDesignChecking::textDidChange);
    hideList();
    setFindings({});
    check();
}

bool LSMDesignChecking::isEnabled() const
{
    return UserDefaults::standardUserDefaults().boolean(checksKey);
}

void LSMDesignChecking::setEnabled(bool enabled)
{
    UserDefaults::standardUserDefaults().setObject(checksKey, enabled);
}

bool LSMDesignChecking::showsFindings() const
{
    return UserDefaults::standardUserDefaults().boolean(showsKey);
}

void LSMDesignChecking::setShowsFindings(bool shows)
{
    UserDefaults::standardUserDefaults().setObject(showsKey, shows);
}

void LSMDesignChecking::settingDidChange(const QString &key)
{
    if (key == showsKey)
        updateList();
    if (key != checksKey)
        return;
    updateGutter();
    setFindings({});
    check();
}

void LSMDesignChecking::textDidChange()
{
    m_liveCheck.cancel();
    m_delay.start(delay);
}

void LSMDesignChecking::check()
{
    m_delay.stop();
    if (m_design && m_design->isCustomDesignTemplate() && isEnabled())
        m_liveCheck.check(m_editor->textView()->string(),
                          LSMHtmlCheck::Context::of(m_design->templateDictionary()->values()));
    else
        m_liveCheck.cancel();
}

LSMFindings LSMDesignChecking::clashes() const
{
    LSMFindings findings;
    const auto add = [&](const QString &value, QLatin1StringView key, const QString &text) {
        if (!value.isEmpty() && m_manager->hasDesignNotEqualToDesign(m_design, value, key))
            findings.push_back({{}, LSMFinding::Level::Warning, text, 0, 0, 0});
    };
    if (!m_design)
        return findings;
    add(m_design->templateName(), LSMDesignKeys::name,
        localized("Another design has the same name."));
    add(m_design->templateIdentifier(), LSMDesignKeys::identifier,
        localized("Another design has the same identifier."));
    return findings;
}

void LSMDesignChecking::setFindings(const LSMFindings &findings)
{
    m_findings = findings;
    m_editor->setSyntaxErrors(LSMSyntaxErrorsOf(findings));
    m_list->setFindings(findings);
    if (m_countButton) {
        const auto worst = std::ranges::max_element(findings, {}, &LSMFinding::level);
        m_countButton->setVisible(!findings.empty());
        m_countButton->setText(LSMCountOfFindings(findings));
        m_countButton->setIcon(findings.empty() ? QIcon() : LSMIconOfLevel(worst->level));
    }
    updateList();
    Q_EMIT findingsDidChange();
}

// Once it is there it stays, so that lines do not jump with each key.
void LSMDesignChecking::updateList()
{
    if (!isEnabled() || !showsFindings())
        hideList();
    else if (!m_findings.empty())
        m_list->show();
}

bool LSMDesignChecking::hasListTheKeyboard() const
{
    return m_list->isAncestorOf(m_list->window()->focusWidget());
}

// The keyboard goes back to the text.
void LSMDesignChecking::hideList()
{
    if (hasListTheKeyboard())
        m_editor->textView()->setFocus();
    m_list->hide();
}

void LSMDesignChecking::updateGutter()
{
    m_editor->gutterView()->setReservesDecorationColumn(isEnabled());
}

void LSMDesignChecking::toggleList()
{
    const bool isLeft = hasListTheKeyboard();
    setShowsFindings(!isLeft);
    if (isLeft)
        return;
    m_list->setVisible(isEnabled());
    Q_EMIT sightWasAskedFor();
    m_list->setFocus();
}

void LSMDesignChecking::goToNext()
{
    const qsizetype caret = m_editor->textView()->selectedRange().location;
    const LSMFindings placed = placedFindings();
    const auto next = std::ranges::find_if(
        placed, [&](const LSMFinding &finding) { return indexOf(finding) > caret; });
    if (!placed.empty())
        goTo(next == placed.end() ? placed.front() : *next);
}

void LSMDesignChecking::goToPrevious()
{
    const qsizetype caret = m_editor->textView()->selectedRange().location;
    const LSMFindings placed = placedFindings();
    const auto found =
        std::ranges::find_if(placed.rbegin(), placed.rend(),
                             [&](const LSMFinding &finding) { return indexOf(finding) < caret; });
    if (!placed.empty())
        goTo(found == placed.rend() ? placed.back() : *found);
}

// In order of their places, as the check gives them.
LSMFindings LSMDesignChecking::placedFindings() const
{
    LSMFindings placed = m_findings;
    std::erase_if(placed, [this](const LSMFinding &finding) {
        return finding.line == 0 || indexOf(finding) == platform::NotFound;
    });
    return placed;
}

// The text may have changed since the check.
qsizetype LSMDesignChecking::indexOf(const LSMFinding &finding) const
{
    return mgs_characterAtIndex(*m_editor->textView()->textStorage(), finding.character - 1,
                                finding.line - 1);
}

void LSMDesignChecking::goTo(const LSMFinding &finding)
{
    SMLTextView *view = m_editor->textView();
    const qsizetype index = indexOf(finding);
    if (finding.line == 0 || index == platform::NotFound)
        return;
    setShowsFindings(true); // the list tells what is wrong there
    m_list->setCurrentFinding(finding);
    Q_EMIT sightWasAskedFor();
    view->setSelectedRange({index, qMin(finding.length, view->textStorage()->length() - index)});
    view->scrollRangeToVisible(view->selectedRange());
    view->setFocus();
}
