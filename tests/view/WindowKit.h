// The viewer's window with files of a folder of its own, worked as a user works it.
#pragma once

#include <gtest/gtest.h>

#include <QSettings>
#include <QTest>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "view/dialog/QtText.h"
#include "view/language/Texts.h"
#include "view/window/MainWindow.h"

namespace window_tests {

using namespace kelvarin::view;

constexpr int Longest = 30'000;  // ms to wait for what takes a fraction of it

class ViewWindow : public testing::Test {
  protected:
    ViewWindow() {
        setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        tzset();
        QCoreApplication::setOrganizationName("kelvarin-tests");
        QCoreApplication::setApplicationName("window");
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ToQt(Folder.Path("settings")));
        UseTexts("en");
        Shown = std::make_unique<MainWindow>(HostModule());
        Shown->resize(1200, 800);
        Shown->show();
        Shown->activateWindow();  // without a window manager nobody else does
        EXPECT_TRUE(QTest::qWaitForWindowActive(Shown.get()));
    }
    ~ViewWindow() override {
        Shown.reset();
        unsetenv("TZ");
        tzset();
    }

    QString Write(const char* name, const std::string& bytes) const {
        return ToQt(Folder.Write(name, bytes));
    }

    void Wait() const {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Shown->IsBusy(); }, Longest));
        QCoreApplication::processEvents();
    }

    void Open(const QString& path) const {
        Shown->Open(path);
        Wait();
    }

    QTreeWidgetItem* Item(int row, int file = 0) const {
        return Shown->Tree().topLevelItem(file)->child(row);
    }

    std::string Plotted() const {
        std::string names;
        for (const Pane& pane : Shown->Model().Panes()) {
            for (const SignalPointer& signal : pane.Signals) names += signal->Name() + " ";
            names += "| ";
        }
        return names;
    }

    std::string CursorCell(int row, int column) const {
        return Shown->Cursors().item(row, column)->text().toStdString();
    }

    Workdir Folder;
    std::unique_ptr<MainWindow> Shown;
};

// A German file of some rows, of which one has no number and one no time.
inline std::string GermanFile(int rows) {
    std::string text = "Zeit;Drehzahl;Druck\n;U/min;bar\n";
    for (int i = 0; i < rows; ++i) {
        char line[100];
        std::snprintf(line, sizeof line, "31.01.2024 08:%02d:%02d,5;%d,25;%s\n", i / 60, i % 60, 800 + i,
                      i == 7 ? "defekt" : "1,5");
        text += i == 9 ? "kaputt;1,0;1,0\n" : line;
    }
    return text;
}
}  // namespace window_tests
