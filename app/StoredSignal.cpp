#include "app/StoredSignal.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/SampleValue.h"

namespace {

void Assign(StoredSample& sample, const void* data, std::uint32_t size, std::int64_t time) {
    const char* const bytes = static_cast<const char*>(data);
    sample.Time = time;
    sample.HasValue = true;
    sample.Bytes.assign(bytes, bytes + size);
}

}  // namespace

StoredSignal::StoredSignal(std::u16string name, std::uint32_t type, std::uint32_t size, std::uint32_t id,
                           std::size_t keepLimit)
    : Name(std::move(name)), Type(type), Size(size), Id{{0, 0, 0}, id}, KeepLimit(keepLimit) {}

DM::EResult StoredSignal::AddSample(const void* data, std::uint32_t size, std::int64_t time) {
    if (Count == 0) FirstTime = time;
    LastTime = time;
    ++Count;
    if (data == nullptr) {
        ++WithoutValue;
    } else {
        Summarize(data, size, time);
    }
    if (Times.size() < KeepLimit) Keep(data, size, time);
    return DM::ResultOk;
}

void StoredSignal::Summarize(const void* data, std::uint32_t size, std::int64_t time) {
    if (!First.HasValue) Assign(First, data, size, time);
    Assign(Last, data, size, time);
    double number = 0.0;
    if (!SampleNumber(Type, data, number) || std::isnan(number)) return;
    Lowest = HasRange ? std::min(Lowest, number) : number;
    Highest = HasRange ? std::max(Highest, number) : number;
    HasRange = true;
    Course.Add(number);
}

void StoredSignal::Keep(const void* data, std::uint32_t size, std::int64_t time) {
    Times.push_back(time);
    Validity.push_back(data != nullptr);
    if (data != nullptr) {
        const char* const bytes = static_cast<const char*>(data);
        Values.insert(Values.end(), bytes, bytes + size);
    }
    Ends.push_back(Values.size());
}

DM::EResult StoredSignal::WriteMetaData(std::uint32_t, const DM::XmlString& xml) {
    MetaData.push_back(xml.GetString());
    return DM::ResultOk;
}

std::string StoredSignal::SampleAsJson(std::size_t index) const {
    std::string text = "[" + std::to_string(Times[index]) + ", ";
    if (!Validity[index]) return text + "null]";
    const std::size_t begin = index == 0 ? 0 : Ends[index - 1];
    return text + SampleJson(Type, Values.data() + begin, static_cast<std::uint32_t>(Ends[index] - begin)) +
           "]";
}
