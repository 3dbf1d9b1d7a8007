#include "LayoutMetrics.h"

#include <QHash>

namespace {

struct Metric
{
    const char* name;
    int value;
};

// The misspelled "MFGlobalLayoutMarging" and the shortened "Lay" names are
// the keys editors have always used; they stay as they are.
const Metric kMetrics[] = {
    {"frameLineWidth", 0},
    {"labelLineWidth", 0},
    {"labelPointSize", 10},
    {"labelHeight", 20},
    {"buttonWidth", 20},
    {"buttonHeight", 20},
    {"PopupFrameWidth", 260},
    {"PopupFrameHeight", 100},
    {"PopupLayoutMargin", 6},
    {"PopupLayoutSpacing", 8},
    {"SFieldLayoutMargin", 4},
    {"SFieldLayoutSpacing", 6},
    {"SFieldEditLayoutMargin", 0},
    {"SFieldEditLayoutSpacing", 0},
    {"SFButtonLayoutMargin", 2},
    {"SFButtonLayoutSpacing", 0},
    {"SFEditionAreaLayMargin", 0},
    {"SFEditionAreaLaySpacing", 2},
    {"SFComponentHeight", 18},
    {"SFBoolWidth", 16},
    {"SFColorSpacing", 6},
    {"SFColorMargin", 0},
    {"SFColorInterSpacing", 2},
    {"SFColorDispWidth", 20},
    {"SFVecLineHeight", 16},
    {"SFVecLabelHeight", 14},
    {"SF4fBoxVSpacing", 4},
    {"SF4fBoxHSpacing", 4},
    {"SF4fBoxHMargin", 2},
    {"SF3fBoxVSpacing", 4},
    {"SF3fBoxHSpacing", 20},
    {"SF3fBoxHMargin", 2},
    {"SF2BoxHSpacing", 25},
    {"SF2BoxHMargin", 2},
    {"SF2BoxVSpacing", 4},
    {"MFGlobalLayoutSpacing", 2},
    {"MFGlobalLayoutMarging", 6},
    {"MFGlobalButtonsLayoutMargin", 0},
    {"MFGlobalButtonsLayoutSpacing", 5},
    {"MFButtonLayoutMargin", 0},
    {"MFButtonLayoutSpacing", 0},
    {"MFAccessWidth", 60},
    {"MFManageAccessSpacerWidth", 0},
    {"MFManageAccessSpacerHeight", 0},
    {"MFAccessMoveSpacerHeight", 0},
    {"MFAccessMoveSpacerWidth", 0},
    {"MFTableMinHeightWin", 43},
    {"MFTableMinHeightUnix", 46},
    {nullptr, 0},
};

// Built once, on first use, from the whole table. From then on lookups only
// read it, so they are safe from any thread without a lock.
const QHash<QString, int>& cache()
{
    static const QHash<QString, int> metrics = [] {
        QHash<QString, int> hash;
        for (const Metric* row = kMetrics; row->name; ++row) {
            // The first row of a name is the one that counts.
            const QString name = QString::fromLatin1(row->name);
            if (!hash.contains(name))
                hash.insert(name, row->value);
        }
        return hash;
    }();
    return metrics;
}

} // namespace

int LayoutMetrics::value(const QString& name)
{
    return cache().value(name, 0);
}
