#include "editor/MGSTagPartner.h"

#include "editor/MGSMarkupTags.h"

using platform::TextRange;

namespace {

TextRange opening(const MGSMarkupTag &tag)
{
    const bool isClosing = tag.kind == MGSMarkupTag::Kind::Closing;
    return {tag.range.location, tag.name.size() + (isClosing ? 2 : 1)};
}

template <class Iterator>
Iterator partnerOf(Iterator tag, Iterator end)
{
    int depth = 0;
    for (Iterator at = tag; at != end; ++at) {
        if (!at->hasNameOf(*tag))
            continue;
        depth += at->kind == tag->kind ? 1 : -1;
        if (depth == 0)
            return at;
    }
    return end;
}

} // namespace

std::optional<MGSTagPair> MGSTagPartner(const platform::TextStorage &storage, qsizetype index)
{
    const qsizetype start = qMax<qsizetype>(0, index - MGSTagPartnerReach);
    const QString text = storage.substring(
        TextRange::between(start, qMin(storage.length(), index + MGSTagPartnerReach)));
    const std::vector<MGSMarkupTag> tags = mgs_markupTags(text);
    const auto tag =
        std::ranges::find_if(tags, [at = index - start](const MGSMarkupTag &candidate) {
            return candidate.kind != MGSMarkupTag::Kind::Comment &&
                   candidate.range.location <= at && at <= candidate.range.end();
        });
    if (tag == tags.end())
        return std::nullopt;
    const MGSMarkupTag *partner = nullptr;
    if (tag->kind == MGSMarkupTag::Kind::Closing) {
        const auto back = std::make_reverse_iterator(std::next(tag));
        const auto found = partnerOf(back, tags.rend());
        partner = found == tags.rend() ? nullptr : &*found;
    } else {
        const auto found = partnerOf(tag, tags.end());
        partner = found == tags.end() ? nullptr : &*found;
    }
    if (!partner)
        return std::nullopt;
    const auto placed = [start](TextRange range) {
        return TextRange{range.location + start, range.length};
    };
    return MGSTagPair{placed(opening(*tag)), placed(opening(*partner))};
}
