// A session manager that answers as it was told and keeps a transcript.
#pragma once

#include "mainwindow/keeping.h"

#include <string>
#include <vector>

namespace norvik::test {

class ScriptedSession : public SessionManager {
  public:
    bool Allows = true;
    /// ask | release | cancel
    std::vector<std::string> Transcript;

    bool AllowsQuestion() override {
        Transcript.emplace_back("ask");
        return Allows;
    }
    void Release() override { Transcript.emplace_back("release"); }
    void Cancel() override { Transcript.emplace_back("cancel"); }
};

}  // namespace norvik::test
