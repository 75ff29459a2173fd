// A desktop that plays prepared answers and keeps a transcript of every call. An unprepared
// question fails the test at once, an answer left over fails it at the end.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace norvik::test {

class ScriptedDesktop : public Desktop, public Windows {
  public:
    ~ScriptedDesktop() override;

    // Answers, in the order of the questions. The message box that only has an OK button needs
    // none.
    ScriptedDesktop& AnswerBox(Button button);
    ScriptedDesktop& AnswerText(std::optional<Text> answer);
    ScriptedDesktop& AnswerFile(std::optional<FilePath> answer);
    ScriptedDesktop& AnswerReplace(bool answer);

    /// The box that ticks its offer to answer all further ones alike: the first one that offers it,
    /// the second one, …; none by default.
    int TickedOffer = 0;

    /// One line per call, UTF-8:
    ///   box "text" title "title" icon None buttons Ok default Ok -> Ok
    ///   input "prompt" title "title" preset "" -> "answer"      (-> cancel)
    ///   open "filter" ending .t9t -> /path                      (-> cancel)
    ///   save "filter" ending .t9t -> /path
    ///   replace /path -> yes
    ///   status "text" | beep | pointer Hourglass | pointer Normal
    ///   entry | list | file | focus 0 | close
    ///   show NVHE | show NVList | close NVList | show NVSET | show VERSIONS | close VERSIONS
    ///   show DOUBLES | close DOUBLES | show PHONELIST
    ///   document /path -> 33 | editor /path
    /// CR LF inside a text stands as \r\n. A box or input that offers to answer all further ones
    /// alike ends with "offering for all" in front of "->", its answer with "for all" when that
    /// was ticked.
    std::vector<std::string> Transcript;

    /// The transcript without the status lines and the pointer, for tests that are not about them.
    [[nodiscard]] std::vector<std::string> Questions() const;
    /// The texts of the status lines alone.
    [[nodiscard]] std::vector<std::string> Statuses() const;

    /// What opening a document returns.
    int ShellResult = 33;

    /// What happens when something is to be shown; nothing by default. Tests of the main window's
    /// handlers let the first two compute the fields.
    std::function<void()> OnShowEntry;
    std::function<void()> OnRebuildList;
    std::function<void()> OnShowCurrentFile;
    std::function<void(TextView)> OnStatus;
    /// What the status adds to the path of a file that is replaced; nothing by default.
    std::function<Text(const FilePath&)> OnBeforeReplacing;
    std::function<Text(const FilePath&)> OnBeforeOverwriting;

    Button Ask(const MessageBox& box) override;
    std::optional<Text> AskForText(const InputBox& box) override;
    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override;
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override;
    bool AskToReplace(const FilePath& file) override;
    Text BeforeReplacing(const FilePath& file) override;
    Text BeforeOverwriting(const FilePath& file) override;
    void SetStatus(TextView text) override;
    void Beep() override;
    void SetPointer(Pointer pointer) override;
    void ShowEntry() override;
    void RebuildList() override;
    void ShowCurrentFile() override;
    void FocusField(int field) override;
    void CloseMainWindow() override;
    void ShowMobileExport() override;
    void ShowRegisterList() override;
    void CloseRegisterList() override;
    void ShowSettings() override;
    void ShowVersions() override;
    void CloseVersions() override;
    void ShowDoubles() override;
    void CloseDoubles() override;
    void ShowPhoneList() override;
    int OpenDocument(const FilePath& document) override;
    void OpenInTextEditor(const FilePath& document) override;

  private:
    using Answer = std::variant<Button, std::optional<Text>, std::optional<FilePath>, bool>;

    template <typename Wanted>
    Wanted NextAnswer(const std::string& question, Wanted fallback);
    /// What of a question's offer stands in front of and behind its answer.
    std::pair<std::string, std::string> TakeOffer(bool* forAll);
    std::optional<FilePath> AskForFile(const std::string& kind, const FileDialog& dialog);

    std::deque<Answer> answers_;
    int offers_ = 0;
};

/// A text as UTF-8 with \r and \n written out, as transcripts show it.
std::string Utf8(TextView text);

/// "box …" as the transcript shows a message box that was answered with its only button, OK.
std::string OkBox(TextView text, TextView title = u"NORVIK", const std::string& icon = "None");

}  // namespace norvik::test
