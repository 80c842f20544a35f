#include "host/MessageList.h"

#include <algorithm>
#include <utility>

#include "platform/framework/Text.h"

namespace kelvarin {
// Compares in place: a copy of each text without its digits would cost more than all the rest.
bool MessageList::KindOrder::operator()(const ImportMessage& one, const ImportMessage& other) const {
    if (one.Column != other.Column || one.Column >= 0) return one.Column < other.Column;
    auto a = one.Text.begin();
    auto b = other.Text.begin();
    for (;; ++a, ++b) {
        a = std::find_if_not(a, one.Text.end(), IsDigit);
        b = std::find_if_not(b, other.Text.end(), IsDigit);
        if (a == one.Text.end() || b == other.Text.end()) return b != other.Text.end();
        if (*a != *b) return *a < *b;
    }
}

void MessageList::Add(ImportMessage message, std::uint64_t line) {
    constexpr std::size_t LinesKept = 100;
    auto kind = GroupOfKind.find(message);
    if (kind == GroupOfKind.end()) {
        kind = GroupOfKind.emplace(message, AllGroups.size()).first;
        AllGroups.push_back({message.Text, {}, 0, message.Failure});
    }
    MessageGroup& group = AllGroups[kind->second];
    ++group.Count;
    if (group.Lines.size() < LinesKept) group.Lines.push_back(line);
    ++Count;
    if (First.size() == Keep) return;
    First.push_back(std::move(message));
    FirstLines.push_back(line);
}
}  // namespace kelvarin
