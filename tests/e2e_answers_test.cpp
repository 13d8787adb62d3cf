// How `kalvio call` takes its answers, and how it refuses those that do not fit.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Answers : public testing::Test {
 protected:
  Outcome Run(const std::string& function, const std::string& answers) {
    return RunKalvio({"call", function, "--answers", folder.Write("answers.json", answers)}, where);
  }
  Outcome RunAsking(const std::string& function, const std::string& answers) {
    where.variables["KALVIO_MODULE"] = AskingModule();
    return Run(function, answers);
  }
  // Bad usage before anything was called.
  void ExpectRefused(const std::string& answers, const std::string& where_,
                     const std::string& word) {
    const Outcome run = Run("DummyVexa4modExport", answers);
    EXPECT_EQ(run.status, 2) << answers;
    EXPECT_EQ(run.out, "") << answers;
    EXPECT_THAT(run.err, AllOf(HasSubstr("answers.json:" + where_ + ":"), HasSubstr(word)))
        << answers;
    EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Answers, SetIsAppliedInTheOrderInWhichItIsWritten) {
  const Outcome run = RunAsking("FImportTXTFile", R"([
    {"dialog": "notebook", "set": {"zeta": 1, "alpha": [2, "x"], "mid": true}, "press": "Again"}])");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Events(run.out)[2]["state"]["entries"],
            nlohmann::ordered_json({"zeta=1", "alpha=[2,\"x\"]", "mid=true"}));
}

TEST_F(Answers, DialogThatStaysOpenIsToldAgainAndTakesTheNextAnswer) {
  const Outcome run = RunAsking("FImportTXTFile", R"([
    {"dialog": "notebook", "press": "Again"},
    {"dialog": "notebook", "set": {"kept": 1}, "press": "Again"},
    {"dialog": "notebook", "press": "OK"}])");
  EXPECT_THAT(EventNames(run.out),
              ElementsAre("wait", "dialog", "dialog", "dialog", "wait", "returned"));
  EXPECT_EQ(Events(run.out)[3]["state"]["entries"].size(), 1U);
  EXPECT_EQ(Events(run.out).back()["value"], 1);
}

TEST_F(Answers, DialogIsCancelledWhenNoneAreLeft) {
  const Outcome run = RunAsking("FImportTXTFile", R"([{"dialog": "notebook", "press": "Again"}])");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(EventNames(run.out), ElementsAre("wait", "dialog", "dialog", "wait", "returned"));
  EXPECT_EQ(Events(run.out).back()["value"], 2);
}

TEST_F(Answers, WithoutAFileEveryDialogIsCancelled) {
  const Outcome run = RunKalvio({"call", "FImportJB2File"}, where);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":0})");
}

TEST_F(Answers, QuestionTakesItsAnswerAndAPlainBoxNone) {
  const Outcome run = RunAsking("FExportTXTFile", R"([{"message": "Go on?", "press": "Yes"}])");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Lines(run.out)[0], R"({"event":"message","caption":"Plain","text":"Only OK here.",)"
                               R"("flags":64,"answer":"OK"})");
  EXPECT_EQ(Lines(run.out)[1], R"({"event":"message","caption":"Question","text":"Go on?",)"
                               R"("flags":52,"answer":"Yes"})");
  EXPECT_EQ(Events(run.out).back()["value"], 1);
}

TEST_F(Answers, QuestionIsAnsweredNoAsToldAndWhenNoneAreLeft) {
  for (const char* answers : {R"([{"message": "Go on?", "press": "No"}])", "[]"}) {
    const Outcome run = RunAsking("FExportTXTFile", answers);
    EXPECT_EQ(Events(run.out)[1]["answer"], "No") << answers;
    EXPECT_EQ(Events(run.out).back()["value"], 2) << answers;
  }
}

TEST_F(Answers, QuestionOfADialogComesBetweenItsAnswers) {
  const Outcome run = RunAsking("FImportTXTFile", R"([
    {"dialog": "notebook", "press": "Ask"},
    {"message": "Inside?", "press": "Yes"},
    {"dialog": "notebook", "press": "OK"}])");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(EventNames(run.out),
              ElementsAre("wait", "dialog", "message", "dialog", "wait", "returned"));
}

TEST_F(Answers, QuestionHasNoOtherButtons) {
  const Outcome run = RunAsking("FExportTXTFile", R"([{"message": "Go on?", "press": "OK"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(EventNames(run.out), ElementsAre("message"));
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"Yes\""), HasSubstr("\"No\""), HasSubstr("\"OK\"")));
}

TEST_F(Answers, AnswerForAnotherDialogEndsTheCall) {
  const Outcome run = Run("FImportJB2File", R"([{"dialog": "text-main", "press": "OK"}])");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog"));
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"file\""), HasSubstr("\"text-main\"")));
  EXPECT_EQ(Lines(run.err).size(), 1U);
}

TEST_F(Answers, AnswerForAMessageDoesNotFitADialog) {
  const Outcome run = Run("FImportJB2File", R"([{"message": "file", "press": "Yes"}])");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("dialog \"file\""), HasSubstr("message \"file\"")));
}

TEST_F(Answers, AnswerForADialogDoesNotFitAQuestion) {
  const Outcome run = RunAsking("FExportTXTFile", R"([{"dialog": "file", "press": "OK"}])");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("Go on?"), HasSubstr("\"file\"")));
}

TEST_F(Answers, AnswerForAnotherQuestionEndsTheCall) {
  const Outcome run = RunAsking("FExportTXTFile", R"([{"message": "Stop?", "press": "Yes"}])");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("Go on?"), HasSubstr("Stop?")));
}

// The wait indicator ends while the call is being left, and must not show.
TEST_F(Answers, NothingIsToldAfterTheCallWasEnded) {
  const Outcome run = RunAsking("FImportTXTFile", R"([{"dialog": "other", "press": "OK"}])");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(EventNames(run.out), ElementsAre("wait", "dialog"));
}

TEST_F(Answers, EndedCallSavesNothing) {
  folder.Write("answers.json", R"([{"dialog": "other", "press": "OK"}])");
  const Outcome run = RunKalvio(
      {"call", "FImportJB2File", "--answers", "answers.json", "--save", "saved.json"}, where);
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(folder.Names(), ElementsAre("answers.json"));
}

TEST_F(Answers, UnknownKeyOfADialogIsBadUsage) {
  const Outcome run =
      Run("FImportJB2File", R"([{"dialog": "file", "set": {"colour": 1}, "press": "OK"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"file\""), HasSubstr("\"colour\"")));
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog"));
}

TEST_F(Answers, ValueThatADialogCannotTakeIsBadUsage) {
  const Outcome run =
      Run("FImportJB2File", R"([{"dialog": "file", "set": {"path": [17]}, "press": "OK"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"file\""), HasSubstr("\"path\""), HasSubstr("[17]")));
}

TEST_F(Answers, ButtonThatADialogLacksIsBadUsageThatNamesTheButtons) {
  const Outcome run = Run("FImportJB2File", R"([{"dialog": "file", "press": "Open"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, AllOf(HasSubstr("\"Open\""), HasSubstr("\"OK\""), HasSubstr("\"Cancel\"")));
}

TEST_F(Answers, ComplaintsNameTheLineOfTheAnswer) {
  const Outcome run = RunAsking("FImportTXTFile", R"([
    {"dialog": "notebook",
     "set": {"text": "a [, {\" in a text"},
     "press": "Again"},

    {"dialog": "notebook", "press": "Nowhere"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("answers.json:6:"));
}

TEST_F(Answers, AnswersThatAreLeftOverAreAWarning) {
  const Outcome run = Run("DummyVexa4modExport", R"([{"dialog": "file", "press": "OK"},
      {"dialog": "file", "press": "OK"}])");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, HasSubstr("2 answers were not needed"));
}

TEST_F(Answers, OtherKeysAreRefused) {
  ExpectRefused("[\n{\"dialog\": \"file\", \"press\": \"OK\", \"then\": 1}]", "2", "\"then\"");
}

TEST_F(Answers, AnswerNeedsEitherADialogOrAMessage) {
  ExpectRefused(R"([{"press": "OK"}])", "1", "\"dialog\"");
  ExpectRefused(R"([{"dialog": "file", "message": "x", "press": "OK"}])", "1", "\"message\"");
  ExpectRefused(R"([{"dialog": 5, "press": "OK"}])", "1", "\"dialog\"");
}

TEST_F(Answers, AnswerNeedsAButton) {
  ExpectRefused(R"([{"dialog": "file"}])", "1", "\"press\"");
  ExpectRefused(R"([{"dialog": "file", "press": true}])", "1", "\"press\"");
}

TEST_F(Answers, SetIsAnObjectAndOfADialog) {
  ExpectRefused(R"([{"dialog": "file", "set": [1], "press": "OK"}])", "1", "\"set\"");
  ExpectRefused(R"([{"message": "x", "set": {}, "press": "Yes"}])", "1", "\"set\"");
}

TEST_F(Answers, FileMustBeAListOfObjects) {
  ExpectRefused("{}", "1", "list");
  ExpectRefused("[1,\n\n 2]", "1", "object");
  ExpectRefused("[{\"dialog\": \"file\", \"press\": \"OK\"},\n\n \"x\"]", "3", "object");
}

TEST_F(Answers, BrokenJsonIsRefusedWithItsLine) {
  ExpectRefused("", "1", "JSON");
  ExpectRefused("[\n{\"dialog\": \"file\",\n}]", "3", "JSON");
  ExpectRefused("[] x", "1", "JSON");
  ExpectRefused("[\n\"\xff\"]", "2", "JSON");
}

TEST_F(Answers, FileThatCannotBeReadIsBadUsage) {
  const Outcome missing =
      RunKalvio({"call", "DummyVexa4modExport", "--answers", "missing.json"}, where);
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.err, HasSubstr("missing.json: cannot be opened: No such file"));
  EXPECT_EQ(RunKalvio({"call", "DummyVexa4modExport", "--answers", "/"}, where).status, 2);
}

}  // namespace
}  // namespace e2e
