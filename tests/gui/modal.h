// Drives a modal box from inside the process: what to do is done as soon as the box is up.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

namespace velm {

// A box that never ends would hang the suite, so that it is closed by force after this time.
constexpr std::chrono::seconds kLongestBox{20};

// Runs `ask`, which shows a box, and `act` on the box. Returns what `ask` returned.
template <typename Ask>
auto WithBox(const Ask& ask, const std::function<void(QDialog&)>& act) {
    bool acted = false;
    QTimer starter;
    QObject::connect(&starter, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box == nullptr || acted || !box->isVisible()) return;
        acted = true;
        starter.stop();
        act(*box);
    });
    QTimer breaker;
    breaker.setSingleShot(true);
    QObject::connect(&breaker, &QTimer::timeout, [] {
        ADD_FAILURE() << "the box is still open";
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box != nullptr) box->done(0);
    });
    starter.start(1);
    breaker.start(kLongestBox);
    auto answer = ask();
    EXPECT_TRUE(acted) << "no box came up";
    return answer;
}

// The labels of the box's buttons from left to right.
inline QStringList LabelsOf(const QDialog& box) {
    QList<QPushButton*> buttons = box.findChildren<QPushButton*>();
    std::sort(buttons.begin(), buttons.end(),
              [](auto* a, auto* b) { return a->pos().x() < b->pos().x(); });
    QStringList labels;
    for (const QPushButton* button : buttons)
        labels += button->accessibleName().isEmpty() ? button->text() : button->accessibleName();
    return labels;
}

inline QPushButton* ButtonNamed(const QDialog& box, const QString& word) {
    for (QPushButton* button : box.findChildren<QPushButton*>()) {
        if (button->text() == word || button->accessibleName() == word) return button;
    }
    return nullptr;
}

inline void Press(const QDialog& box, const QString& word) {
    QPushButton* button = ButtonNamed(box, word);
    ASSERT_NE(button, nullptr) << word.toStdString();
    QTest::mouseClick(button, Qt::LeftButton);
}

}  // namespace velm
