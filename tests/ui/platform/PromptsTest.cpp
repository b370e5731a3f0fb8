// The prompt service: the filter translation of the real file dialog, and the scripted service
// every window test relies on.

#include <QtTest>

#include "platform/Prompts.h"
#include "platform/QtPrompts.h"
#include "platform/ScriptedPrompts.h"

using namespace orr::ui;

class PromptsTest : public QObject {
    Q_OBJECT

  private slots:
    void classicFiltersBecomeQtFilters_data() {
        QTest::addColumn<QString>("classic");
        QTest::addColumn<QString>("qt");
        QTest::newRow("picture dialog")
            << "All Pictures|*.BMP;*.GIF;*.JPG|Bitmap (*.bmp)|*.BMP|JPEG Images (*.jpg)|*.JPG|"
               "CompuServe Bitmap (*.gif)|*.GIF|All Files (*.*)|*.*"
            << "All Pictures (*.BMP *.GIF *.JPG);;Bitmap (*.BMP);;JPEG Images (*.JPG);;"
               "CompuServe Bitmap (*.GIF);;All Files (*)";
        QTest::newRow("blanks around patterns") << "Text | *.txt ; *.lst "
                                                << "Text (*.txt *.lst)";
        QTest::newRow("pattern without name") << "*.orb"
                                              << "*.orb (*.orb)";
    }
    void classicFiltersBecomeQtFilters() {
        QFETCH(QString, classic);
        QFETCH(QString, qt);
        QCOMPARE(QtPrompts::qtFileFilter(classic), qt);
    }

    void queuedAnswersAreGivenInOrderPerKind() {
        ScriptedPrompts scripted;
        scripted.answerMessage(PromptAnswer::Yes);
        scripted.answerInput(QStringLiteral("Nova"));
        scripted.answerMessage(PromptAnswer::No);
        scripted.answerInput(std::nullopt);
        scripted.answerFile(QStringLiteral("/tmp/a.bmp"));
        scripted.answerFolder(QStringLiteral("/tmp"));
        QString seen;
        scripted.answerMessageWith([&seen](const MessagePrompt& p) {
            seen = p.caption;
            return PromptAnswer::Ok;
        });

        MessagePrompt question;
        question.text = QStringLiteral("Save?");
        question.buttons = PromptButtons::YesNoCancel;
        QCOMPARE(prompts().message(nullptr, question), PromptAnswer::Yes);
        QCOMPARE(prompts().input(nullptr, {QStringLiteral("Name?"), QStringLiteral("Orrerion"),
                                           QStringLiteral("Sol")}),
                 std::optional<QString>(QStringLiteral("Nova")));
        QCOMPARE(prompts().message(nullptr, question), PromptAnswer::No);
        QCOMPARE(prompts().input(nullptr, {}), std::optional<QString>());
        QCOMPARE(prompts().openFile(nullptr, {QStringLiteral("Choose Picture"),
                                              QStringLiteral("Bitmap|*.BMP"), QString()}),
                 QStringLiteral("/tmp/a.bmp"));
        QCOMPARE(prompts().chooseFolder(nullptr, QStringLiteral("Where?")), QStringLiteral("/tmp"));
        prompts().inform(nullptr, QStringLiteral("x"), QStringLiteral("Confirmation"));
        QCOMPARE(seen, QStringLiteral("Confirmation"));

        QCOMPARE(scripted.unexpectedCount(), 0);
        QCOMPARE(scripted.unusedAnswerCount(), 0);
        QCOMPARE(static_cast<int>(scripted.asked().size()), 7);
        QCOMPARE(scripted.asked()[1].defaultText, QStringLiteral("Sol"));
        QCOMPARE(scripted.asked()[4].filter, QStringLiteral("Bitmap|*.BMP"));
        QCOMPARE(scripted.messageTexts(), QStringList({"Save?", "Save?", "x"}));
    }

    void unansweredPromptsNeverBlockAndAreRecorded() {
        ScriptedPrompts scripted;
        MessagePrompt prompt;
        prompt.buttons = PromptButtons::YesNo;
        QCOMPARE(prompts().message(nullptr, prompt), PromptAnswer::No);
        prompt.buttons = PromptButtons::YesNoCancel;
        QCOMPARE(prompts().message(nullptr, prompt), PromptAnswer::Cancel);
        prompt.buttons = PromptButtons::OkCancel;
        QCOMPARE(prompts().message(nullptr, prompt), PromptAnswer::Cancel);
        prompts().inform(nullptr, QStringLiteral("Done."));
        QCOMPARE(prompts().input(nullptr, {}), std::optional<QString>());
        QVERIFY(prompts().openFile(nullptr, {}).isEmpty());
        QVERIFY(prompts().chooseFolder(nullptr, QString()).isEmpty());
        QCOMPARE(scripted.unexpectedCount(), 7);
        QCOMPARE(scripted.asked()[3].buttons, PromptButtons::Ok);
    }

    void installationIsUndoneInReverseOrder() {
        Prompts* real = &prompts();
        {
            ScriptedPrompts outer;
            QCOMPARE(&prompts(), static_cast<Prompts*>(&outer));
            {
                ScriptedPrompts inner;
                QCOMPARE(&prompts(), static_cast<Prompts*>(&inner));
            }
            QCOMPARE(&prompts(), static_cast<Prompts*>(&outer));
        }
        QCOMPARE(&prompts(), real);
        QVERIFY(dynamic_cast<QtPrompts*>(&prompts()) != nullptr);
    }
};

QTEST_MAIN(PromptsTest)
#include "PromptsTest.moc"
