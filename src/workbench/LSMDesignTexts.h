#pragma once

#include "platform/text/HiddenLines.h"
#include "platform/text/TextScroller.h"
#include "platform/text/TextSelection.h"
#include "platform/text/TextStorage.h"

#include <memory>
#include <QObject>
#include <unordered_map>

class LSMDesignTemplate;
class MGSFragariaView;

/// The HTML of each design as it is edited: a text with an undo history of its own, and where it
/// was left: selection, place, folds. One code view shows them in turn. A text is made when its
/// design is shown first, and goes with it. Owned by the editor; main thread.
class LSMDesignTexts : public QObject
{
    Q_OBJECT

public:
    explicit LSMDesignTexts(MGSFragariaView *view); ///< Borrowed, and the owner of this.

    /// Shows what the design has now; without one, nothing. Of a text that was changed elsewhere
    /// only what differs is replaced, as one step of undo.
    void show(LSMDesignTemplate *design);

    const std::shared_ptr<platform::TextStorage> &textOf(LSMDesignTemplate *design);

private:
    struct Document
    {
        std::shared_ptr<platform::TextStorage> text = std::make_shared<platform::TextStorage>();
        platform::TextSelections selections;
        platform::ScrollPosition position;
        std::vector<platform::HiddenLines::Stretch> folded;
    };

    Document &documentOf(LSMDesignTemplate *design);
    void leave();
    void enter(const Document &document);
    void noteSaved(LSMDesignTemplate *design);

    MGSFragariaView *m_view;
    LSMDesignTemplate *m_shownDesign = nullptr;
    std::unordered_map<LSMDesignTemplate *, Document> m_documents;
};
