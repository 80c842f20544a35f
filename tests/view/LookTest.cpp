// How the dialog looks: room for every text, colours that can be read, pictures for the documents.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <QTreeView>
#include <cmath>

#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "languages/English.h"
#include "platform/framework/PropertySheet.h"
#include "plugin/CsvImportFilter.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "view/WindowUser.h"

namespace {

constexpr const char* GermanTable =
    "Datum;Uhrzeit;Drehzahl\n01.02.2024;10:00:00;1,5\n01.02.2024;10:00:01;2,5\n";

// The widgets whose text has no room, by their texts.
std::string CutTexts() {
    QString cut;
    for (const QWidget* const widget : QApplication::activeModalWidget()->findChildren<QWidget*>()) {
        // Labels without a number have -1; what has no number is a part of another widget.
        if (!widget->isVisible() || widget->objectName().toInt() == 0) continue;
        QString text;
        QSize needed;
        if (const auto* const button = dynamic_cast<const QAbstractButton*>(widget)) text = button->text();
        if (const auto* const label = dynamic_cast<const QLabel*>(widget)) text = label->text();
        if (const auto* const combo = dynamic_cast<const QComboBox*>(widget)) text = combo->itemText(0);
        const bool isField = dynamic_cast<const QLineEdit*>(widget) != nullptr;
        if (!text.isEmpty() || isField) needed = widget->sizeHint();
        const bool isBox = dynamic_cast<const QCheckBox*>(widget) != nullptr ||
                           dynamic_cast<const QRadioButton*>(widget) != nullptr;
        if (isBox) needed.setHeight(widget->fontMetrics().height());
        if (isField || (dynamic_cast<const QComboBox*>(widget) != nullptr && text.isEmpty()))
            needed.setWidth(0);
        if (needed.width() > widget->width() || needed.height() > widget->height())
            cut += text + " (" + widget->objectName() + "), ";
    }
    return cut.toStdString();
}

// The controls that lie outside their page or over one another.
std::string MisplacedWidgets() {
    QString misplaced;
    const QWidget& window = *QApplication::activeModalWidget();
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (const QWidget* const widget : widgets) {
        const int id = widget->objectName().toInt();
        if (!widget->isVisible() || id <= 0) continue;
        const QRect place = widget->geometry();
        if (!widget->parentWidget()->rect().contains(place)) misplaced += widget->objectName() + " outside, ";
        for (const QWidget* const other : widgets) {
            if (other->parentWidget() != widget->parentWidget() || other->objectName().toInt() <= id)
                continue;
            if (place.intersects(other->geometry()))
                misplaced += widget->objectName() + " over " + other->objectName() + ", ";
        }
    }
    return misplaced.toStdString();
}

class Look {
  public:
    Look() : Font(QApplication::font()), Palette(QApplication::palette()) {}
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look() {
        QApplication::setFont(Font);
        QApplication::setPalette(Palette);
        CsvImportModule().UseLanguage(nullptr);
    }

  private:
    const QFont Font;
    const QPalette Palette;
};

void ShowDialog(const std::function<void(CDialog&)>& look, const SettingList& settings = {}) {
    const Workdir folder;
    const TestProfile profile(Joined({"TimestampFormat=TT.MM.JJJJ; hh:mm:ss,000", "TimeColumn=2"}, settings));
    CCsvImportFilter filter(folder.Write("data.csv", GermanTable).c_str());
    const WindowUser user(look);
    filter.ShowOptionDialog();
}

TEST(ViewLook, HasRoomForEveryTextInAnyFont) {
    const struct {
        const char* Family;
        int Pixels;  // 13 at 96 dpi are 26 at 192
    } fonts[] = {{"DejaVu Sans", 11},
                 {"DejaVu Sans", 13},
                 {"DejaVu Serif", 20},
                 {"DejaVu Sans Mono", 16},
                 {"DejaVu Sans Condensed", 26}};
    for (const auto& font : fonts) {
        for (const bool isEnglish : {false, true}) {
            const Look before;
            QFont chosen(font.Family);
            chosen.setPixelSize(font.Pixels);
            QApplication::setFont(chosen);
            CsvImportModule().UseLanguage(isEnglish ? &GetEnglishResources() : nullptr);
            SCOPED_TRACE(std::string(font.Family) + " of " + std::to_string(font.Pixels) +
                         (isEnglish ? ", en" : ""));
            ShowDialog([](CDialog& dialog) {
                for (const int page : {0, 1}) {
                    DoStep("page " + std::to_string(page));
                    EXPECT_EQ(dialog.Sheet->GetActiveIndex(), page);
                    EXPECT_EQ(CutTexts(), "");
                    EXPECT_EQ(MisplacedWidgets(), "");
                }
            });
        }
    }
}

TEST(ViewLook, IsScrolledOnALowScreen) {
    const Look before;
    QFont large("DejaVu Sans");
    large.setPixelSize(26);
    QApplication::setFont(large);
    ShowDialog([](CDialog&) {
        const QWidget& window = *FrontWindow();
        EXPECT_LT(window.height(), window.screen()->availableGeometry().height());
        for (const int button : {1, 2})
            EXPECT_TRUE(window.rect().contains(WidgetOf(button)->geometry())) << button;
        WidgetOf(CtrlUseAsDefault)->setFocus();
        QCoreApplication::processEvents();
        PressKey(Qt::Key_Tab);
        const QRect box = WidgetOf(CtrlSaveSidecar)->visibleRegion().boundingRect();
        EXPECT_EQ(FocusedId(), CtrlSaveSidecar);
        EXPECT_GT(box.height(), 0) << "the focus scrolls it into view";
    });
}

// The ratio of contrast between two colours, 1 to 21, as accessibility guidelines define it.
double Contrast(const QColor& one, const QColor& other) {
    const auto brightness = [](const QColor& color) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const double light = std::max(brightness(one), brightness(other));
    const double dark = std::min(brightness(one), brightness(other));
    return (light + 0.05) / (dark + 0.05);
}

TEST(ViewLook, TintsTheColumnsOfTheTimeInEveryScheme) {
    const struct {
        const char* What;
        QColor Base, Button, Text, Tint;
    } schemes[] = {{"light", QColor(255, 255, 255), QColor(240, 240, 220), Qt::black, QColor(247, 247, 237)},
                   {"dark", QColor(32, 32, 32), QColor(64, 96, 128), Qt::white, QColor(48, 64, 80)},
                   {"high contrast", Qt::black, QColor(0, 0, 64), Qt::yellow, QColor(0, 0, 32)}};
    for (const auto& scheme : schemes) {
        SCOPED_TRACE(scheme.What);
        const Look before;
        QPalette palette;
        palette.setColor(QPalette::Base, scheme.Base);
        palette.setColor(QPalette::Button, scheme.Button);
        palette.setColor(QPalette::Text, scheme.Text);
        QApplication::setPalette(palette);
        ShowDialog([&](CDialog&) {
            auto& list = dynamic_cast<QTreeView&>(*WidgetOf(CtrlPreview));
            const QImage picture = list.viewport()->grab().toImage();
            const auto backgroundOf = [&](int column) {
                const QRect cell = list.visualRect(list.model()->index(0, column));
                return picture.pixelColor(cell.right() - 4, cell.bottom() - 1);
            };
            EXPECT_EQ(backgroundOf(0).name().toStdString(), scheme.Tint.name().toStdString())
                << "a column of the time";
            EXPECT_EQ(backgroundOf(2).name().toStdString(), scheme.Base.name().toStdString())
                << "another column";
            constexpr double Readable = 4.5;
            EXPECT_GT(Contrast(scheme.Text, backgroundOf(0)), Readable);
        });
    }
}

TEST(ViewLook, FollowsASchemeThatChangesWhileItIsOpen) {
    const Look before;
    ShowDialog([](CDialog&) {
        QPalette palette;
        palette.setColor(QPalette::Base, QColor(32, 32, 32));
        palette.setColor(QPalette::Button, QColor(64, 96, 128));
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        auto& list = dynamic_cast<QTreeView&>(*WidgetOf(CtrlPreview));
        const QVariant tint = list.model()->data(list.model()->index(0, 0), Qt::BackgroundRole);
        EXPECT_EQ(tint.value<QColor>().name().toStdString(), "#304050");
    });
}

// Every page, also one that is made afterwards, has room again; what was typed and the widths of columns
// stay.
TEST(ViewLook, FollowsAFontThatChangesWhileItIsOpen) {
    const Look before;
    QFont font("DejaVu Sans");
    font.setPixelSize(12);
    QApplication::setFont(font);
    ShowDialog([&font](CDialog&) {
        DoStep("page 1");
        DoStep("page 0");
        DoStep("type 1015 7");
        auto& list = dynamic_cast<QTreeView&>(*WidgetOf(CtrlPreview));
        const QSize size = FrontWindow()->size();
        const auto share = [&list] { return static_cast<double>(list.columnWidth(0)) / list.width(); };
        for (const int pixels : {24, 9, 12}) {
            SCOPED_TRACE(pixels);
            font.setPixelSize(pixels);
            const double wanted = share();
            QApplication::setFont(font);
            QTest::qWait(20);
            EXPECT_NEAR(share(), wanted, 0.01);
            for (const int page : {0, 1}) {
                DoStep("page " + std::to_string(page));
                EXPECT_EQ(CutTexts(), "");
                EXPECT_EQ(MisplacedWidgets(), "");
            }
            DoStep("page 0");
            EXPECT_EQ(FrontWindow()->width() > size.width(), pixels > 12);
            EXPECT_EQ(WidgetOf(CtrlTimeColumn)->findChild<QLineEdit*>()->text(), "7");
        }
        EXPECT_EQ(FrontWindow()->size(), size);
    });
}

// Not a test of its own: KELVARIN_PICTURES names the folder for the pictures of the documents.
TEST(ViewLook, MakesThePicturesOfTheDocuments) {
    const char* const folder = std::getenv("KELVARIN_PICTURES");
    if (folder == nullptr) GTEST_SKIP() << "KELVARIN_PICTURES is not set";
    const Look before;
    QFont font("DejaVu Sans");
    font.setPixelSize(12);
    QApplication::setFont(font);
    const TestProfile profile({"TimestampFormat=TT.MM.JJJJ; hh:mm:ss,000", "TimeColumn=2"});
    CCsvImportFilter filter(PathFromNative(KELVARIN_EXAMPLES "/pruefstand.csv").c_str());
    const WindowUser user([&](CDialog&) {
        for (const auto& [page, name] : {std::pair{0, "general"}, {1, "signals"}}) {
            DoStep("page " + std::to_string(page));
            const QString path = QString("%1/dialog-linux-%2.png").arg(folder, name);
            EXPECT_TRUE(FrontWindow()->grab().save(path)) << path.toStdString();
        }
    });
    filter.ShowOptionDialog();
}

}  // namespace
