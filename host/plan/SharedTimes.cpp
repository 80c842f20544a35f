#include "host/plan/SharedTimes.h"

namespace kelvarin::plan {
namespace {
// Of the order of day, month and year.
int StrengthOf(OrderProof proof) {
    switch (proof) {
        case OrderProof::Texts:
        case OrderProof::Name:
            return 4;
        case OrderProof::Steps:
            return 3;
        case OrderProof::Custom:
            return 2;
        case OrderProof::None:
            return 1;
        default:
            return 0;
    }
}

void AddOrder(FoundTimes& times, const FoundTimes& other) {
    const int own = StrengthOf(times.Order);
    const int others = StrengthOf(other.Order);
    DateOrder& order = times.Recipe.Style.Order;
    if (own > others || (own == others && order == other.Recipe.Style.Order)) return;
    // Two weak proofs of different orders prove nothing.
    times.Order = own < others ? other.Order : OrderProof::None;
    times.IsOrderElsewhere = true;
    order = other.Recipe.Style.Order;
}
}  // namespace

void AddEvidence(FoundTimes& times, const FoundTimes& other) {
    TimeRecipe& recipe = times.Recipe;
    const TimeRecipe& others = other.Recipe;
    AddOrder(times, other);
    if (!times.IsUnitNamed) {
        recipe.Unit = others.Unit;
        times.IsUnitNamed = other.IsUnitNamed;
    }
    if (others.Mark != u'.') recipe.Mark = others.Mark;
    recipe.Style.BeginsWithMinutes |= others.Style.BeginsWithMinutes;
    recipe.Style.FractionIsCounted |= others.Style.FractionIsCounted;
    recipe.RollsOver &= others.RollsOver && !recipe.Style.BeginsWithMinutes;
    recipe.AppliesZone &= others.AppliesZone;
    times.IsClockShort &= other.IsClockShort && !recipe.Style.BeginsWithMinutes;
}

bool AreOrdersOpposed(const FoundTimes& one, const FoundTimes& other) {
    return IsOrderProven(one) && IsOrderProven(other) && one.Recipe.Style.Order != other.Recipe.Style.Order;
}

bool IsOrderProven(const FoundTimes& times) {
    return times.Order == OrderProof::Texts || times.Order == OrderProof::Name;
}
}  // namespace kelvarin::plan
