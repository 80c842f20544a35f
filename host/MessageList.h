// The messages of one file, grouped by kind.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"

namespace kelvarin {

// Messages of one kind: about the cells of one column, or alike but for their numbers.
struct MessageGroup {
    std::u16string FirstText;
    std::vector<std::uint64_t> Lines;  // of the first messages; 0 for one outside the run
    std::uint64_t Count = 0;
    bool Failure = false;
};

// Keeps the first 100 of each kind and counts the rest, so that a file in which every row fails costs no
// memory; or keeps all.
class MessageList {
  public:
    explicit MessageList(bool keepAll) : KeepAll(keepAll) {}

    // `line` is the line of the file that was being read, 0 before the run.
    void Add(const ImportMessage& message, std::uint64_t line);

    // In the order of each kind's first message.
    const std::vector<MessageGroup>& Groups() const { return AllGroups; }

    // Every message in order; empty unless all are kept.
    const std::vector<ImportMessage>& All() const { return AllMessages; }

    bool IsEmpty() const { return AllGroups.empty(); }

  private:
    const bool KeepAll;
    std::vector<MessageGroup> AllGroups;
    std::map<std::pair<int, std::u16string>, std::size_t> GroupOfKind;  // column and text without numbers
    std::vector<ImportMessage> AllMessages;
};

}  // namespace kelvarin
