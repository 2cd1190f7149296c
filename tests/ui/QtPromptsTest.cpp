#include "ui/QtPrompts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

TEST(QtPromptsTest, FiltersBecomeQtFilters) {
    EXPECT_EQ(ConvertFileFilter("SNES Images|*.smc;*.sfc|All Files|*.*"),
              "SNES Images (*.smc *.sfc);;All Files (*.*)");
    // Patterns that the description already shows are not repeated.
    EXPECT_EQ(ConvertFileFilter("Bitmap Image (*.bmp)|*.bmp|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg"),
              "Bitmap Image (*.bmp);;JPEG (*.jpg *.jpeg)");
    EXPECT_EQ(ConvertFileFilter("HTML|*.htm;*.html|"), "HTML (*.htm *.html)");
    EXPECT_EQ(ConvertFileFilter("Anything"), "Anything (*)");
    EXPECT_EQ(ConvertFileFilter(QString()), QString());
}

// Hands the dialog that the next prompt opens to answer.
template <typename Dialog, typename Answer> void WhenShown(Answer answer) {
    QTimer::singleShot(0, [answer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        answer(dialog);
    });
}

TEST(QtPromptsTest, MessageBoxesAreTitledLumbraUnlessGivenATitle) {
    QtPrompts prompts;
    QString title;
    WhenShown<QMessageBox>([&title](QMessageBox* box) {
        title = box->windowTitle();
        EXPECT_EQ(box->text(), "View the Event Log before Ending?");
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        ASSERT_NE(box->button(QMessageBox::Cancel), nullptr);
        box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(prompts.Message("View the Event Log before Ending?", PromptButtons::YesNoCancel,
                              PromptIcon::Question),
              PromptAnswer::No);
    EXPECT_EQ(title, "Lumbra");

    WhenShown<QMessageBox>([&title](QMessageBox* box) {
        title = box->windowTitle();
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        box->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(prompts.Message("Failed", PromptButtons::Ok, PromptIcon::Critical, "Error"),
              PromptAnswer::Ok);
    EXPECT_EQ(title, "Error");
}

TEST(QtPromptsTest, InputGivesTheTextOrNothingWhenCancelled) {
    QtPrompts prompts;
    WhenShown<QInputDialog>([](QInputDialog* input) {
        EXPECT_EQ(input->windowTitle(), "Create Group");
        EXPECT_EQ(input->labelText(), "Enter the new group's caption:");
        input->setTextValue("Action");
        input->accept();
    });
    EXPECT_EQ(prompts.Input("Enter the new group's caption:", "Create Group"), "Action");

    WhenShown<QInputDialog>([](QInputDialog* input) { input->reject(); });
    EXPECT_EQ(prompts.Input("Name?"), std::nullopt);
}

} // namespace
