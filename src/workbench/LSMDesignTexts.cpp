#include "workbench/LSMDesignTexts.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "library/LSMDesignTemplate.h"
#include "platform/text/TextUndo.h"

LSMDesignTexts::LSMDesignTexts(MGSFragariaView *view) : QObject(view), m_view(view) {}

void LSMDesignTexts::show(LSMDesignTemplate *design)
{
    if (m_shownDesign != design) {
        leave();
        m_shownDesign = design;
        enter(design ? documentOf(design) : Document());
    }
    if (!design)
        return;
    m_view->textView()->reloadString(design->htmlSourceCode());
    noteSaved(design);
}

void LSMDesignTexts::leave()
{
    if (!m_shownDesign)
        return;
    const platform::TextView *view = m_view->textView();
    Document &left = documentOf(m_shownDesign);
    left.selections = view->selections();
    left.position = view->scrollPosition();
    left.folded = view->layoutManager()->hiddenLines().stretches();
}

void LSMDesignTexts::enter(const Document &document)
{
    platform::TextView *view = m_view->textView();
    m_view->replaceTextStorage(document.text);
    for (const auto &[first, last] : document.folded)
        view->layoutManager()->hideLines(first, last);
    view->setSelections(document.selections);
    view->setScrollPosition(document.position);
}

const std::shared_ptr<platform::TextStorage> &LSMDesignTexts::textOf(LSMDesignTemplate *design)
{
    return documentOf(design).text;
}

LSMDesignTexts::Document &LSMDesignTexts::documentOf(LSMDesignTemplate *design)
{
    const auto [known, isNew] = m_documents.try_emplace(design);
    if (!isNew)
        return known->second;
    connect(design, &QObject::destroyed, this, [this, design] {
        m_documents.erase(design);
        if (m_shownDesign == design)
            m_shownDesign = nullptr;
    });
    connect(design, &LSMDesignTemplate::templateShouldBeSavedDidChange, this,
            [this, design] { noteSaved(design); });
    known->second.text->setString(design->htmlSourceCode());
    return known->second;
}

// Also after a revert, which clears the design's mark before the text is brought back.
void LSMDesignTexts::noteSaved(LSMDesignTemplate *design)
{
    if (!design->templateShouldBeSaved())
        platform::TextUndo::of(textOf(design).get()).markClean();
}
