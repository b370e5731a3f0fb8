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
    void classicFiltersBecomeQtFilters() {
        const std::pair<const char*, const char*> filters[] = {
            {"All Pictures|*.BMP;*.GIF;*.JPG|Bitmap (*.bmp)|*.BMP|All Files (*.*)|*.*",
             "All Pictures (*.BMP *.GIF *.JPG);;Bitmap (*.BMP);;All Files (*)"},
            {"Text | *.txt ; *.lst ", "Text (*.txt *.lst)"},  // blanks around patterns
            {"*.orb", "*.orb (*.orb)"},                       // a pattern without a name
        };
        for (const auto& [classic, qt] : filters)
            QCOMPARE(QtPrompts::qtFileFilter(QString::fromLatin1(classic)),
                     QString::fromLatin1(qt));
    }

    void queuedAnswersAreGivenInOrderPerKind() {
        ScriptedPrompts scripted;
        scripted.answerMessage(PromptAnswer::Yes);
        scripted.answerInput(QStringLiteral("Nova"));
        scripted.answerFile(QStringLiteral("/tmp/a.bmp"));
        scripted.answerFolder(QStringLiteral("/tmp"));
        QString seen;
        scripted.answerMessageWith([&seen](const MessagePrompt& p) {
            seen = p.caption;
            return PromptAnswer::Ok;
        });

        MessagePrompt question;
        question.text = QStringLiteral("Save?");
        QCOMPARE(prompts().message(nullptr, question), PromptAnswer::Yes);
        QCOMPARE(prompts().input(nullptr, {QStringLiteral("Name?"), QStringLiteral("Orrerion"),
                                           QStringLiteral("Sol")}),
                 std::optional<QString>(QStringLiteral("Nova")));
        QCOMPARE(prompts().openFile(nullptr, {QStringLiteral("Choose Picture"),
                                              QStringLiteral("Bitmap|*.BMP"), QString()}),
                 QStringLiteral("/tmp/a.bmp"));
        QCOMPARE(prompts().chooseFolder(nullptr, QStringLiteral("Where?")), QStringLiteral("/tmp"));
        prompts().inform(nullptr, QStringLiteral("x"), QStringLiteral("Confirmation"));
        QCOMPARE(seen, QStringLiteral("Confirmation"));

        QCOMPARE(scripted.unexpectedCount(), 0);
        QCOMPARE(scripted.unusedAnswerCount(), 0);
        QCOMPARE(static_cast<int>(scripted.asked().size()), 5);
        QCOMPARE(scripted.asked()[1].defaultText, QStringLiteral("Sol"));
        QCOMPARE(scripted.asked()[2].filter, QStringLiteral("Bitmap|*.BMP"));
        QCOMPARE(scripted.messageTexts(), QStringList({"Save?", "x"}));
    }

    // Unanswered prompts never block and are recorded; a scripted service installed inside
    // another gives way to it again, and at last to the real one.
    void unansweredPromptsNeverBlockAndAreRecorded() {
        Prompts* real = &prompts();
        QVERIFY(dynamic_cast<QtPrompts*>(real) != nullptr);
        ScriptedPrompts outer;
        {
            ScriptedPrompts inner;
            QCOMPARE(&prompts(), static_cast<Prompts*>(&inner));
        }
        ScriptedPrompts& scripted = outer;
        QCOMPARE(&prompts(), static_cast<Prompts*>(&scripted));
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
};

QTEST_MAIN(PromptsTest)
#include "PromptsTest.moc"
