#include "view/dialog/DialogWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/UserInput.h"
#include "platform/framework/portable/DialogFront.h"
#include "view/dialog/Appearance.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

constexpr int CancelId = 2;

// The room of a page inside the tabs. On a screen that is too low for the whole page it is scrolled.
class PageArea : public QScrollArea {
  public:
    explicit PageArea(QSize size) {
        auto* const page = new QWidget;
        page->setFixedSize(size);
        setWidget(page);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        // The tabs are seen through.
        page->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
    }
    QSize sizeHint() const override { return widget()->size(); }
};

QSize SizeOf(const DialogTemplate& dialog) {
    const CRect size = GetDialogUnits().ToPixels({0, 0, dialog.Width, dialog.Height});
    return {size.Width(), size.Height()};
}

}  // namespace

DialogWindow::DialogWindow(CDialog& frame, QWidget* parent) : QDialog(parent), Frame(frame) {
    setWindowTitle(ToQt(frame.GetTemplate().Title));
    if (frame.Sheet != nullptr) MakeTabs();
    FrameView = std::make_unique<PageView>(frame, *this, *this);
    ArrangeFrame();
    qApp->installEventFilter(this);
    // The focus can also be moved past the keyboard and the mouse, by tools for the disabled.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (InStep || now == nullptr || now->window() != this) return;
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (QApplication::mouseButtons() == Qt::NoButton) Settle();
            },
            Qt::QueuedConnection);
    });
    InStep = true;
    ShowControls();
    ShowFocus();
    InStep = false;
}

DialogWindow::~DialogWindow() {
    InStep = true;
    qApp->removeEventFilter(this);
}

void DialogWindow::MakeTabs() {
    CPropertySheet& sheet = *Frame.Sheet;
    Tabs = new QTabWidget(this);
    for (int i = 0; i < sheet.GetPageCount(); ++i) {
        const DialogTemplate& page = sheet.GetPage(i).GetTemplate();
        Tabs->addTab(new PageArea(SizeOf(page)), ToQt(page.Title));
    }
    Tabs->setFocusPolicy(Qt::NoFocus);
    Tabs->tabBar()->setFocusPolicy(Qt::StrongFocus);
    Pages.resize(static_cast<std::size_t>(sheet.GetPageCount()));
    connect(Tabs, &QTabWidget::currentChanged, this,
            [this](int index) { Do([&] { UserShowPage(Frame, index); }); });
}

QScrollArea& DialogWindow::AreaOf(int page) const {
    return static_cast<QScrollArea&>(*Tabs->widget(page));
}

// As much as the pages need, or as the screen leaves with the buttons below and a title above.
QSize DialogWindow::RoomOfTabs() const {
    constexpr short Rest = 30;  // dialog units: buttons and margins
    constexpr int Title = 40;
    const QSize wanted = Tabs->sizeHint();
    const int most =
        screen()->availableGeometry().height() - Title - GetDialogUnits().ToPixels({0, 0, 0, Rest}).Height();
    if (wanted.height() <= most) return wanted;
    return {wanted.width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent), most};
}

// The tabs take the room that the style gives them; the frame's buttons come below them, the last at the
// right.
void DialogWindow::ArrangeFrame() {
    if (Tabs == nullptr) return setFixedSize(SizeOf(Frame.GetTemplate()));
    const CRect gap = GetDialogUnits().ToPixels({4, 4, 4, 6});
    Tabs->ensurePolished();
    Tabs->setGeometry(QRect(QPoint(gap.Left, gap.Top), RoomOfTabs()));
    const QRect tabs = Tabs->geometry();
    int right = tabs.right() + 1;
    int bottom = tabs.bottom() + 1;
    const auto& buttons = FrameView->Controls();
    for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
        QWidget& widget = (*button)->Widget();
        widget.move(right - widget.width(), tabs.bottom() + 1 + gap.Height());
        right -= widget.width() + gap.Height();
        bottom = std::max(bottom, widget.geometry().bottom() + 1);
    }
    setFixedSize(tabs.right() + 1 + gap.Left, bottom + gap.Height());
}

// Another font or style has other units.
void DialogWindow::PlaceAnew() {
    if (Frame.IsEnded()) return;
    if (DialogDriver* const driver = GetDialogDriver()) driver->PrepareDialog();
    Do([this] {
        PlaceControls(Frame);
        FrameView->Place();
        for (std::size_t i = 0; i < Pages.size(); ++i) {
            CPropertyPage& page = Frame.Sheet->GetPage(static_cast<int>(i));
            QScrollArea& area = AreaOf(static_cast<int>(i));
            area.widget()->setFixedSize(SizeOf(page.GetTemplate()));
            area.updateGeometry();
            if (Pages[i] == nullptr) continue;
            PlaceControls(page);
            Pages[i]->Place();
        }
        ArrangeFrame();
    });
}

// Pages come into being while the dialog is open.
void DialogWindow::MakePages() {
    for (std::size_t i = 0; i < Pages.size(); ++i) {
        CPropertyPage& page = Frame.Sheet->GetPage(static_cast<int>(i));
        if (Pages[i] != nullptr || !page.IsCreated()) continue;
        Pages[i] = std::make_unique<PageView>(page, *this, *AreaOf(static_cast<int>(i)).widget());
        OrderTabs();
    }
}

// The page, the tabs, the frame's buttons.
void DialogWindow::OrderTabs() {
    std::vector<QWidget*> order;
    const auto add = [&order](const PageView& view) {
        for (const auto& control : view.Controls()) order.push_back(&control->Widget());
    };
    for (const auto& page : Pages) {
        if (page != nullptr) add(*page);
    }
    order.push_back(Tabs->tabBar());
    add(*FrameView);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void DialogWindow::Do(const std::function<void()>& step) {
    if (InStep) return;
    InStep = true;
    step();
    ShowControls();
    if (!Frame.IsEnded()) ShowFocus();
    InStep = false;
    if (Frame.IsEnded()) done(0);
}

void DialogWindow::ShowControls() {
    MakePages();
    if (Tabs != nullptr) Tabs->setCurrentIndex(Frame.Sheet->GetActiveIndex());
    FrameView->Show();
    for (const auto& page : Pages) {
        if (page != nullptr) page->Show();
    }
}

// A control keeps the focus on whichever of its parts has it, such as the editor over a cell.
void DialogWindow::ShowFocus() {
    const ControlWidget* const wanted = Find(focusedWindow);
    const ControlWidget* const has = OwnerOf(focusWidget());
    if (wanted != nullptr && wanted != has) wanted->Widget().setFocus(Qt::OtherFocusReason);
    if (wanted != nullptr && Tabs != nullptr && &wanted->Page() != &Frame)
        AreaOf(Tabs->currentIndex()).ensureWidgetVisible(&wanted->Widget());
    if (focusedWindow == nullptr && Tabs != nullptr && focusWidget() != Tabs->tabBar())
        Tabs->tabBar()->setFocus();
}

void DialogWindow::FocusOn(const ControlWidget& widget) {
    Do([&] { UserFocus(widget.Page(), widget.Control().Id); });
}

void DialogWindow::Settle() {
    if (Frame.IsEnded()) return;
    const ControlWidget* const has = OwnerOf(focusWidget());
    if (has != nullptr && has->TakesFocus()) {
        if (&has->Control() != focusedWindow) FocusOn(*has);
    } else if (Tabs != nullptr && focusWidget() == Tabs->tabBar() && focusedWindow != nullptr) {
        Do([this] { UserShowPage(Frame, Frame.Sheet->GetActiveIndex()); });
    }
}

bool DialogWindow::focusNextPrevChild(bool next) {
    const bool moved = QDialog::focusNextPrevChild(next);
    Settle();
    return moved;
}

void DialogWindow::reject() {
    if (Frame.GetDlgItem(CancelId).Exists()) {
        Do([this] { UserClick(Frame, CancelId); });
    } else {
        Do([this] { Frame.OnCancel(); });
    }
}

// Enter presses the button that has the focus, else it is OK; the focus stays where it is.
void DialogWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return reject();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return;
    const ControlWidget* const has = OwnerOf(focusWidget());
    const ControlKind kind = has == nullptr ? ControlKind::Label : has->Control().Kind;
    if (kind == ControlKind::PushButton || kind == ControlKind::DefaultButton) {
        Do([&] { UserClick(has->Page(), has->Control().Id); });
    } else {
        Do([this] { Frame.OnOK(); });
    }
}

// The user's scheme, font and style can change while the dialog is open. A new font comes to the widgets one
// after the other, and is measured once all have it.
void DialogWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        QMetaObject::invokeMethod(
            this, [this] { PlaceAnew(); }, Qt::QueuedConnection);
    if (event->type() != QEvent::PaletteChange) return;
    UseColorsOfPalette();
    Do([] {});
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event) {
    if (InStep || !watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    if (widget.window() != this) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return TakePress(widget, *static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
            return TakeKey(widget, *static_cast<QKeyEvent*>(event));
        case QEvent::Shortcut:
            return TakeMnemonic(widget);
        case QEvent::Wheel: {
            // Over what hasn't the focus the wheel changes nothing; a list scrolls.
            const ControlWidget* const owner = OwnerOf(&widget);
            return widget.parentWidget() == Tabs ||
                   (owner != nullptr && owner->Control().Kind != ControlKind::ListView &&
                    &owner->Control() != focusedWindow);
        }
        default:
            return false;
    }
}

bool DialogWindow::TakePress(const QWidget& pressed, const QMouseEvent& press) {
    if (Tabs != nullptr && &pressed == Tabs->tabBar()) return TakeTabPress(press);
    const ControlWidget* const owner = OwnerOf(&pressed);
    if (owner == nullptr || !owner->TakesFocus() || &owner->Control() == focusedWindow) return false;
    FocusOn(*owner);
    // The control that was left may have taken the focus back, with a message.
    return focusedWindow != &owner->Control();
}

bool DialogWindow::TakeTabPress(const QMouseEvent& press) {
    const int index = Tabs->tabBar()->tabAt(press.position().toPoint());
    if (press.button() == Qt::LeftButton && index >= 0) Do([&] { UserShowPage(Frame, index); });
    return true;
}

bool DialogWindow::TakeKey(const QWidget& receiver, const QKeyEvent& key) {
    const bool isBack = key.key() == Qt::Key_Left || key.key() == Qt::Key_Up;
    const bool isArrow = isBack || key.key() == Qt::Key_Right || key.key() == Qt::Key_Down;
    if (Tabs != nullptr && key.modifiers().testFlag(Qt::ControlModifier)) {
        const bool isForward = key.key() == Qt::Key_Tab || key.key() == Qt::Key_PageDown;
        if (isForward || key.key() == Qt::Key_Backtab || key.key() == Qt::Key_PageUp) {
            TurnPage(isForward ? 1 : -1);
            return true;
        }
    }
    if (!isArrow || key.modifiers().testFlag(Qt::AltModifier)) return false;
    if (Tabs != nullptr && &receiver == Tabs->tabBar()) {
        const int index = Tabs->currentIndex() + (isBack ? -1 : 1);
        if (index >= 0 && index < Tabs->count()) Do([&] { UserShowPage(Frame, index); });
        return true;
    }
    const ControlWidget* const owner = OwnerOf(&receiver);
    if (owner == nullptr || owner->Control().Kind != ControlKind::RadioButton) return false;
    const ControlWidget* const next = ViewOf(*owner)->NextRadio(*owner, isBack ? -1 : 1);
    if (next != nullptr) Do([&] { UserClick(next->Page(), next->Control().Id); });
    return true;
}

void DialogWindow::TurnPage(int step) {
    CPropertySheet& sheet = *Frame.Sheet;
    const int pages = sheet.GetPageCount();
    Do([&] { sheet.SetActivePage((sheet.GetActiveIndex() + step + pages) % pages); });
}

bool DialogWindow::TakeMnemonic(const QWidget& widget) {
    const ControlWidget* const owner = OwnerOf(&widget);
    if (owner == nullptr) return false;
    const ControlWidget* const reached =
        owner->Control().Kind == ControlKind::Label ? ViewOf(*owner)->AfterLabel(*owner) : owner;
    if (reached == nullptr) return true;
    if (reached == owner && owner->Control().IsButton()) {
        Do([&] { UserClick(owner->Page(), owner->Control().Id); });
    } else {
        FocusOn(*reached);
    }
    return true;
}

PageView* DialogWindow::ViewOf(const ControlWidget& widget) const {
    for (const auto& page : Pages) {
        if (page != nullptr && page->Find(&widget.Control()) != nullptr) return page.get();
    }
    return FrameView.get();
}

ControlWidget* DialogWindow::OwnerOf(const QWidget* widget) const {
    for (const auto& page : Pages) {
        ControlWidget* const owner = page == nullptr ? nullptr : page->OwnerOf(widget);
        if (owner != nullptr) return owner;
    }
    return FrameView == nullptr ? nullptr : FrameView->OwnerOf(widget);
}

ControlWidget* DialogWindow::Find(const NativeWindow* control) const {
    for (const auto& page : Pages) {
        ControlWidget* const found = page == nullptr ? nullptr : page->Find(control);
        if (found != nullptr) return found;
    }
    return FrameView->Find(control);
}

}  // namespace kelvarin::view
