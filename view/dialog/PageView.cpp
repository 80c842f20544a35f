#include "view/dialog/PageView.h"

#include <QLabel>
#include <algorithm>

#include "platform/framework/DialogTemplate.h"
#include "platform/framework/portable/DialogFront.h"

namespace kelvarin::view {
namespace {

// The spin that steps a control, or null.
NativeWindow* SpinOf(const CDialog& page, const NativeWindow& control) {
    for (const auto& other : page.GetNative().Controls) {
        if (other->Kind == ControlKind::Spin && other->Buddy == &control) return other.get();
    }
    return nullptr;
}

bool IsRadio(const ControlWidget& widget) {
    return widget.Control().Kind == ControlKind::RadioButton;
}

}  // namespace

PageView::PageView(CDialog& page, StepRunner& steps, QWidget& area) {
    for (const auto& control : page.GetNative().Controls) {
        auto made = MakeControlWidget({page, *control, SpinOf(page, *control), steps, &area});
        if (made == nullptr) continue;
        made->Place();
        made->Widget().show();
        Widgets.push_back(std::move(made));
    }
    LinkLabels();
}

PageView::~PageView() = default;

// The letter in a label shows only if something is reached by it.
void PageView::LinkLabels() {
    for (const auto& widget : Widgets) {
        auto* const label = dynamic_cast<QLabel*>(&widget->Widget());
        if (label == nullptr || widget->Control().Text.find(u'&') == std::u16string::npos) continue;
        const auto next =
            std::find_if(Widgets.begin(), Widgets.end(), [&, isBehind = false](const auto& other) mutable {
                const bool found = isBehind && other->Control().Kind != ControlKind::Label;
                isBehind = isBehind || other == widget;
                return found;
            });
        if (next != Widgets.end()) label->setBuddy(&(*next)->Widget());
    }
}

void PageView::Show() {
    for (const auto& widget : Widgets) widget->Show();
    LimitTabbing();
}

void PageView::Place() {
    for (const auto& widget : Widgets) widget->Place();
}

// The tab key comes to one radio button of a group: the checked one, or the first that is enabled.
void PageView::LimitTabbing() {
    for (const auto& widget : Widgets) {
        if (!IsRadio(*widget)) continue;
        const std::vector<ControlWidget*> group = GroupOf(*widget);
        auto stop = std::find_if(group.begin(), group.end(), [](const ControlWidget* radio) {
            return radio->Control().Checked && radio->Control().Enabled;
        });
        if (stop == group.end()) {
            stop = std::find_if(group.begin(), group.end(),
                                [](const ControlWidget* radio) { return radio->Control().Enabled; });
        }
        const bool isStop = stop != group.end() && *stop == widget.get();
        widget->Widget().setFocusPolicy(isStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

ControlWidget* PageView::Find(const NativeWindow* control) const {
    const auto found = std::find_if(Widgets.begin(), Widgets.end(),
                                    [&](const auto& widget) { return &widget->Control() == control; });
    return found == Widgets.end() ? nullptr : found->get();
}

ControlWidget* PageView::OwnerOf(const QWidget* widget) const {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        for (const auto& owner : Widgets) {
            if (&owner->Widget() == widget) return owner.get();
        }
    }
    return nullptr;
}

ControlWidget* PageView::AfterLabel(const ControlWidget& label) const {
    bool isBehind = false;
    for (const auto& widget : Widgets) {
        if (isBehind && widget->TakesFocus()) {
            if (!IsRadio(*widget)) return widget.get();
            for (ControlWidget* const radio : GroupOf(*widget)) {
                if (radio->Control().Checked && radio->TakesFocus()) return radio;
            }
            return widget.get();
        }
        isBehind = isBehind || widget.get() == &label;
    }
    return nullptr;
}

ControlWidget* PageView::NextRadio(const ControlWidget& radio, int step) const {
    const std::vector<ControlWidget*> group = GroupOf(radio);
    const auto count = static_cast<int>(group.size());
    const auto at = static_cast<int>(std::find(group.begin(), group.end(), &radio) - group.begin());
    for (int i = 1; i < count; ++i) {
        ControlWidget* const next =
            group[static_cast<std::size_t>((at + (i * step) % count + count) % count)];
        if (next->TakesFocus()) return next;
    }
    return nullptr;
}

std::vector<ControlWidget*> PageView::GroupOf(const ControlWidget& radio) const {
    std::vector<ControlWidget*> group;
    bool isFound = false;
    for (const auto& widget : Widgets) {
        if (!IsRadio(*widget)) continue;
        if ((widget->Control().Style & ControlGroup) != 0) {
            if (isFound) break;
            group.clear();
        }
        group.push_back(widget.get());
        isFound = isFound || widget.get() == &radio;
    }
    return group;
}

}  // namespace kelvarin::view
