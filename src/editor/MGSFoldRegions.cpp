#include "editor/MGSFoldRegions.h"

#include "editor/MGSMarkupTags.h"
#include "editor/MGSTagPartner.h"
#include <QHash>

using platform::TextRange;
using Kind = MGSMarkupTag::Kind;

MGSFoldRegions mgs_foldRegions(const platform::TextStorage &text, qsizetype firstLine,
                               qsizetype lastLine)
{
    const qsizetype start = text.lineStart(firstLine);
    const qsizetype end = qMin(text.lineContents(lastLine).end(), start + MGSTagPartnerReach);
    const QString code =
        text.substring(TextRange::between(start, qMin(text.length(), end + MGSTagPartnerReach)));
    MGSFoldRegions regions;
    const auto add = [&](qsizetype from, qsizetype to) {
        if (start + from > end)
            return;
        const qsizetype first = text.lineAt(start + from);
        const qsizetype last = text.lineAt(start + to);
        if (last > first + 1)
            regions[first] = qMax(regions[first], last);
    };
    QHash<QString, std::vector<qsizetype>> open; // where elements of a name began
    for (const MGSMarkupTag &tag : mgs_markupTags(code)) {
        if (tag.kind == Kind::Comment) {
            add(tag.range.location, tag.range.end() - 1);
            continue;
        }
        std::vector<qsizetype> &starts = open[tag.name.toString().toLower()];
        if (tag.kind == Kind::Opening) {
            starts.push_back(tag.range.location);
        } else if (!starts.empty()) {
            add(starts.back(), tag.range.location);
            starts.pop_back();
        }
    }
    return regions;
}
