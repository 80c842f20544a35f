#include "host/MessageList.h"

#include <algorithm>

#include "platform/framework/Text.h"

namespace kelvarin {

namespace {

constexpr std::size_t KeptPerKind = 100;

// What messages of a kind share: cell messages their column, all others their text but for its numbers.
std::pair<int, std::u16string> KindOf(const ImportMessage& message) {
    if (message.Column >= 0) return {message.Column, {}};
    std::u16string text = message.Text;
    text.erase(std::remove_if(text.begin(), text.end(), IsDigit), text.end());
    return {message.Column, text};
}

}  // namespace

void MessageList::Add(const ImportMessage& message, std::uint64_t line) {
    const auto [place, isNew] = GroupOfKind.emplace(KindOf(message), AllGroups.size());
    if (isNew) AllGroups.push_back({message.Text, {}, 0, message.Failure});
    MessageGroup& group = AllGroups[place->second];
    ++group.Count;
    if (group.Lines.size() < KeptPerKind) group.Lines.push_back(line);
    if (KeepAll) AllMessages.push_back(message);
}

}  // namespace kelvarin
