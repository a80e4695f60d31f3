#include "action/Speech.h"

#include "support/QtPrinters.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Logs each engine call; reports `voices` voices in every language.
class FakeEngine : public SpeechEngine {
public:
    bool starts = true;
    int voices = 3;
    QStringList calls;

    bool start() override { return starts; }
    void setLanguage(int code) override { calls << QStringLiteral("language %1").arg(code); }
    int speakerCount() const override { return voices; }
    QString speakerName(int) const override { return {}; }
    void setSpeaker(int index) override { calls << QStringLiteral("speaker %1").arg(index); }
    void setSpeed(int rate) override { calls << QStringLiteral("speed %1").arg(rate); }
    QString read(const QString& text) override {
        calls << "read " + text;
        return {};
    }
    void pause() override {}
    void resume() override { calls << "resume"; }
    void stop() override {}
    bool speaking() const override { return false; }
};

TEST(Speech, MapsEachOperationOntoTheEngine) {
    QTemporaryDir folder;
    const QString file = folder.filePath("conte.txt");
    test::writeAll(file, "Ad\xE9u"); // Windows-1252
    struct Case {
        const char* name;
        bool starts;
        int voices;
        std::function<void(Speech&)> act;
        QStringList calls;
    };
    const Case cases[] = {
        {"no engine: LLEGIR does nothing", false, 3, [](Speech& s) { s.speak("hola", 0); }, {}},
        {"one voice: the next is voice 0 again",
         true,
         1,
         [](Speech& s) { s.NextSpeaker(); },
         {"speaker 0"}},
        {"a language by its first character",
         true,
         3,
         [](Speech& s) { s.SetSpeechLanguage("espanhol"); },
         {"language 101"}},
        {"LLEGIR resumes, chooses the voice, reads",
         true,
         3,
         [](Speech& s) { s.speak("a;b", 2); },
         {"resume", "speaker 2", "read a;b"}},
        {"the Template's voice and speed; a voice it lacks is the first",
         true,
         3,
         [](Speech& s) { s.applyTemplate(1, 5, 50); },
         {"language 101", "speaker 0", "speed 88"}},
        {"LLEGEIX options, the rate factor, then LLEGIR back on the Template's",
         true,
         3,
         [&file](Speech& s) {
             s.readFile("/I:e /L:2 /V:200 /F:" + file);
             s.speak("x", 0);
         },
         {"resume", "language 101", "speaker 1", "speed 385", "read Adéu", "resume", "language 99",
          "speed 175", "speaker 0", "read x"}},
    };
    for (const Case& c : cases) {
        FakeEngine engine;
        engine.starts = c.starts;
        engine.voices = c.voices;
        Speech speech(engine);
        EXPECT_EQ(speech.StartSpeech(), c.starts) << c.name;
        const QStringList started{"language 99", "speaker 0"};
        EXPECT_EQ(engine.calls, c.starts ? started : QStringList()) << c.name;
        engine.calls.clear();
        c.act(speech);
        EXPECT_EQ(engine.calls, c.calls) << c.name;
    }
}

} // namespace
} // namespace mervak
