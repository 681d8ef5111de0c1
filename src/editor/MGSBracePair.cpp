#include "editor/MGSBracePair.h"

namespace {

constexpr char16_t braces[][2] = {{u'(', u')'}, {u'[', u']'}, {u'{', u'}'}, {u'<', u'>'}};

} // namespace

const char16_t *mgs_bracePair(char16_t brace)
{
    for (const auto &pair : braces) {
        if (pair[0] == brace || pair[1] == brace)
            return pair;
    }
    return nullptr;
}
