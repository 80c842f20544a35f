// The messages of a run, by kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "contract/ImportFilter.h"

namespace kelvarin {
// Messages of one kind: about the cells of one column, or alike but for their numbers.
struct MessageGroup {
    std::u16string FirstText;
    std::vector<std::uint64_t> Lines;  // of the first 100 messages, from 1; 0 for one outside the run
    std::uint64_t Count = 0;
    bool Failure = false;
};

// A message that isn't kept costs a look-up and no memory, so that a file may fail in every row.
class MessageList {
  public:
    // Keeps at most the first `keep` messages.
    explicit MessageList(std::size_t keep) : Keep(keep) {}

    // `line` is the line of the file that was being read, 0 before the run.
    void Add(ImportMessage message, std::uint64_t line);

    // In the order of each kind's first message.
    const std::vector<MessageGroup>& Groups() const { return AllGroups; }

    // The messages that were kept, in order, and the number of those that came after them.
    const std::vector<ImportMessage>& Kept() const { return First; }
    const std::vector<std::uint64_t>& KeptLines() const { return FirstLines; }  // of these, as Add got them
    std::uint64_t LeftOut() const { return Count - First.size(); }

    bool IsEmpty() const { return Count == 0; }

  private:
    struct KindOrder {
        bool operator()(const ImportMessage& one, const ImportMessage& other) const;
    };

    std::size_t Keep;
    std::uint64_t Count = 0;
    std::vector<MessageGroup> AllGroups;
    std::map<ImportMessage, std::size_t, KindOrder> GroupOfKind;  // index by a message of the kind
    std::vector<ImportMessage> First;
    std::vector<std::uint64_t> FirstLines;
};
}  // namespace kelvarin
