#include "python/native/Convert.h"

#include "host/TypeNames.h"
#include "platform/framework/Text.h"

namespace kelvarin::python {
namespace {
// The name of a keyword argument and a dict for it, as Python code, when there is anything in it.
void AddArgument(std::string& code, const char* name, const py::dict& values) {
    if (values.empty()) return;
    code += (code.empty() ? "" : ", ") + std::string(name) + "=" + std::string(py::repr(values));
}

std::string ColumnArguments(const std::vector<ColumnChoice>& columns) {
    py::dict types, names, units;
    py::list skipped;
    for (const ColumnChoice& choice : columns) {
        const py::int_ column(choice.Column + 1);
        if (!choice.Import) skipped.append(column);
        if (!choice.Import) continue;
        if (choice.Type != 0) types[column] = TypeWord(choice.Type);
        if (!choice.Name.empty()) names[column] = TextToPython(choice.Name);
        if (!choice.Unit.empty()) units[column] = TextToPython(choice.Unit);
    }
    std::string code;
    AddArgument(code, "types", types);
    AddArgument(code, "names", names);
    AddArgument(code, "units", units);
    if (!skipped.empty()) code += (code.empty() ? "skip=" : ", skip=") + std::string(py::repr(skipped));
    return code;
}
}  // namespace

py::object TextToPython(std::string_view utf8) {
    return py::reinterpret_steal<py::object>(
        PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "replace"));
}

py::object TextToPython(std::u16string_view text) {
    int byteOrder = -1;  // little-endian, and no mark of it in the text
    return py::reinterpret_steal<py::object>(PyUnicode_DecodeUTF16(
        reinterpret_cast<const char*>(text.data()), static_cast<Py_ssize_t>(text.size() * sizeof(char16_t)),
        "surrogatepass", &byteOrder));
}

py::object PathToPython(std::string_view path) {
    return py::reinterpret_steal<py::object>(
        PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size())));
}

py::object RemedyToPython(const Remedy& remedy) {
    std::string code = ColumnArguments(remedy.Columns);
    if (remedy.Columns.empty())
        AddArgument(code, "set", SettingsToPython(remedy.Settings, remedy.FormatLetters));
    if (remedy.Action == RemedyAction::CopyFile) code = "kelvarin.prepare(path, copy)";
    const bool hasBoth = !code.empty() && !remedy.Text.empty();
    return TextToPython(remedy.Text + (hasBoth ? ": " : "") + code);
}

py::dict SettingsToPython(const SettingList& settings) {
    py::dict values;
    for (const auto& [key, value] : settings) values[TextToPython(key)] = TextToPython(value);
    return values;
}

py::dict SettingsToPython(const SettingList& settings, const std::u16string& letters) {
    py::dict values = SettingsToPython(settings);
    if (!letters.empty()) values[LettersKey] = TextToPython(letters);
    return values;
}

py::tuple AssumptionsToPython(const std::vector<Assumption>& assumptions) {
    return TupleOf(assumptions, [](const Assumption& one) {
        const py::tuple doubts =
            TupleOf(one.Objections, [](const std::string& text) { return TextToPython(text); });
        return py::make_tuple(one.Kind, TextToPython(one.Text), CodeOf(one.Sureness), doubts);
    });
}

py::tuple FindingsToPython(const std::vector<check::Finding>& findings) {
    return TupleOf(findings, [](const check::Finding& one) {
        const py::tuple lines = TupleOf(one.Lines, [](std::uint64_t line) { return py::int_(line); });
        const py::object column = one.Column == 0 ? py::object(py::none()) : py::int_(one.Column);
        return py::make_tuple(one.Kind, one.IsFault, TextToPython(one.Text), one.Count, lines, column,
                              RemedyToPython(one.Advice));
    });
}
}  // namespace kelvarin::python
