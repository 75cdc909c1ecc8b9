// Our own window for reminders, worked by keys, pen and mouse.
#include "companion/reminder_window.h"
#include "host/qt/call_later.h"

#include <QApplication>
#include <QMenu>
#include <QPointingDevice>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>

namespace tavo::companion {
namespace {

using ::testing::ElementsAre;

class ReminderWindowTest : public ::testing::Test {
  protected:
    ReminderWindowTest() : Window([this](const QString& answer) { Answers.push_back(answer.toStdString()); }) {}

    void SetUp() override {
        Window.ShowCard(7, QStringLiteral("Train"), QStringLiteral("Today, 2:30 PM\nPlatform 4"));
        Window.ShowCard(8, QStringLiteral("Tea"), QStringLiteral("Today, 2:31 PM"));
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &Window,
                        static_cast<Qt::Key>(key), modifiers);
    }

    // The card's button, the first card being 0.
    QPushButton* Button(int card, const QString& label) const {
        int found = 0;
        for (QPushButton* button : Window.findChildren<QPushButton*>()) {
            if (button->text() == label && button->isVisibleTo(&Window) && found++ == card) {
                return button;
            }
        }
        ADD_FAILURE() << "no such button";
        return nullptr;
    }

    // Chooses as soon as the menu is up, since opening it waits for the choice.
    void ChooseInMenu(const std::vector<int>& keys) {
        tavo::qt::CallLater(qApp, [keys] {
            ASSERT_NE(QApplication::activePopupWidget(), nullptr);
            for (const int key : keys) {
                QTest::keyClick(QApplication::activePopupWidget(), static_cast<Qt::Key>(key));
            }
        });
    }

    std::vector<std::string> Answers;
    ReminderWindow Window;
};

TEST_F(ReminderWindowTest, TheFirstCardHasTheKeysAndEnterDismissesIt) {
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("dismiss 7"));
    EXPECT_TRUE(Window.isVisible());
}

TEST_F(ReminderWindowTest, AfterAnAnswerTheNextCardHasTheKeys) {
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("dismiss 7", "dismiss 8"));
    EXPECT_FALSE(Window.isVisible()) << "there is nothing left to answer";
}

TEST_F(ReminderWindowTest, TabWalksTheButtonsOfOneCardAfterTheOther) {
    const std::vector<QPushButton*> order{Button(0, "&Dismiss"), Button(0, "&Snooze"), Button(0, "&Open"),
                                          Button(1, "&Dismiss"), Button(1, "&Snooze"), Button(1, "&Open")};
    for (QPushButton* button : order) {
        EXPECT_EQ(QApplication::focusWidget(), button);
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), order.front());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), order.back());
    Press(Qt::Key_Space);
    EXPECT_THAT(Answers, ElementsAre("open 8"));
}

TEST_F(ReminderWindowTest, EnterOnSnoozeOpensItsChoices) {
    Press(Qt::Key_Tab);
    ChooseInMenu({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("snooze 7 30"));
}

TEST_F(ReminderWindowTest, TheChoicesHaveKeysOfTheirOwn) {
    Press(Qt::Key_Tab);
    ChooseInMenu({Qt::Key_H});
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("snooze 7 60"));
}

TEST_F(ReminderWindowTest, EscapeInTheChoicesAnswersNothing) {
    Press(Qt::Key_Tab);
    ChooseInMenu({Qt::Key_Escape});
    Press(Qt::Key_Return);
    EXPECT_TRUE(Answers.empty());
}

TEST_F(ReminderWindowTest, EscapeDismissesOnlyTheCardWithTheKeys) {
    Button(1, "&Open")->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_THAT(Answers, ElementsAre("dismiss 8"));
    EXPECT_TRUE(Window.isVisible());
}

TEST_F(ReminderWindowTest, AClickOnAButtonIsItsAnswer) {
    QTest::mouseClick(Button(1, "&Open"), Qt::LeftButton);
    QTest::mouseClick(Button(0, "&Dismiss"), Qt::LeftButton);
    EXPECT_THAT(Answers, ElementsAre("open 8", "dismiss 7"));
}

TEST_F(ReminderWindowTest, ATouchOnAButtonIsItsAnswer) {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QWidget* button = Button(1, "&Dismiss");
    const QPoint middle = button->mapTo(&Window, button->rect().center());
    QTest::touchEvent(Window.windowHandle(), screen.get()).press(0, middle);
    QTest::touchEvent(Window.windowHandle(), screen.get()).release(0, middle);
    EXPECT_THAT(Answers, ElementsAre("dismiss 8"));
}

TEST_F(ReminderWindowTest, ACardThatIsTakenBackAnswersNothing) {
    Window.CloseCard(7);
    EXPECT_TRUE(Answers.empty());
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("dismiss 8"));
}

TEST_F(ReminderWindowTest, ACardThatIsTakenBackWhileItsChoicesAreOpenDoesNoHarm) {
    Press(Qt::Key_Tab);
    tavo::qt::CallLater(qApp, [this] {
        Window.CloseCard(7);
        Window.CloseCard(8);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    Press(Qt::Key_Return);
    EXPECT_TRUE(Answers.empty());
    EXPECT_FALSE(Window.isVisible());
}

TEST_F(ReminderWindowTest, ACardThatIsDrawnAnewKeepsItsPlaceAndTheKeys) {
    Window.ShowCard(7, QStringLiteral("2 reminders"), QStringLiteral("Train\nBus"));
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    EXPECT_THAT(Answers, ElementsAre("dismiss 7", "dismiss 8"));
}

TEST_F(ReminderWindowTest, ManyCardsStayOnTheScreenAndTheNewestIsSeenFirst) {
    Window.hide(); // not where somebody works
    for (quint32 number = 9; number < 40; ++number) {
        Window.ShowCard(number, QStringLiteral("More"), QStringLiteral("Today"));
    }
    EXPECT_TRUE(Window.screen()->availableGeometry().contains(Window.geometry()));
    const QPushButton* last = Button(32, "&Dismiss");
    EXPECT_FALSE(last->visibleRegion().isEmpty());
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
}

TEST_F(ReminderWindowTest, TheKeysScrollToTheButtonTheyAreOn) {
    for (quint32 number = 9; number < 40; ++number) {
        Window.ShowCard(number, QStringLiteral("More"), QStringLiteral("Today"));
    }
    Button(0, "&Dismiss")->setFocus();
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    const QWidget* last = QApplication::focusWidget();
    ASSERT_EQ(last, Button(32, "&Open"));
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
}

TEST_F(ReminderWindowTest, NoTextIsWiderThanTheWindow) {
    const QString word(4096, QLatin1Char('W'));
    Window.ShowCard(9, word, word + QLatin1Char('\n') + word);
    EXPECT_TRUE(Window.screen()->availableGeometry().contains(Window.geometry()));
    for (const QPushButton* button : Window.findChildren<QPushButton*>()) {
        EXPECT_LE(button->mapTo(&Window, button->rect().bottomRight()).x(), Window.width());
    }
}

} // namespace
} // namespace tavo::companion

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
