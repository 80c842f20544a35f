#include "platform/framework/StandardStreams.h"

#include <array>
#include <iostream>
#include <streambuf>

#include "platform/framework/OutputCalls.h"
#include "platform/framework/Terminal.h"

namespace {

// Writes to standard output in blocks, on a terminal line by line. After a failure it takes nothing more, so
// that no gap is in what was written.
class OutputBuffer : public std::streambuf {
  public:
    OutputBuffer() { setp(Block.data(), Block.data() + Block.size()); }

    OutputState State() const {
        if (Error == 0) return OutputState::Written;
        return IsReaderGone(Error) ? OutputState::ReaderGone : OutputState::Failed;
    }
    int FirstError() const { return Error; }
    void NoteError(int error) {
        if (Error == 0) Error = error;
    }

  protected:
    int_type overflow(int_type character) override {
        if (sync() != 0) return traits_type::eof();
        if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
        return sputc(traits_type::to_char_type(character));
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override {
        const std::streamsize written = std::streambuf::xsputn(text, size);
        if (IsTerminal && size > 0 && text[size - 1] == '\n') sync();
        return written;
    }

    int sync() override {
        if (Error == 0) Error = WriteOutput(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        setp(Block.data(), Block.data() + Block.size());
        return Error == 0 ? 0 : -1;
    }

  private:
    std::array<char, 65536> Block;
    const bool IsTerminal = IsOutputTerminal();
    int Error = 0;  // the first one's number; 0 without one
};

// Never destroyed: std::cout is flushed after the last static object is gone.
OutputBuffer& Buffer() {
    static OutputBuffer* const buffer = new OutputBuffer;
    return *buffer;
}

std::int64_t s_Kept = 0;  // where the output was whole last

}  // namespace

void WatchOutput() {
    std::cout.rdbuf(&Buffer());
    s_Kept = OutputPosition();
}

OutputState FlushOutput() {
    std::cout.flush();
    return Buffer().State();
}

OutputState CloseOutput() {
    if (FlushOutput() == OutputState::Written) Buffer().NoteError(LateOutputFailure());
    return Buffer().State();
}

std::string OutputFailure() {
    return DescribeOutputError(Buffer().FirstError());
}

OutputState KeepOutput() {
    const OutputState state = FlushOutput();
    if (state == OutputState::Written) {
        s_Kept = OutputPosition();
    } else if (s_Kept >= 0) {
        CutOutput(s_Kept);
    }
    return state;
}
