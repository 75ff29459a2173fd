#include "formats/vcard/vcardnumber.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace norvik {

namespace {

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

bool IsLetter(char16_t character) {
    return character >= u'A' && (LowerCase(character) != UpperCase(character) || character == u'ß');
}

bool IsDialled(char16_t character) {
    return IsDigit(character) || character == u'*' || character == u'#';
}

/// The key of a letter on a telephone.
char16_t KeyOf(char16_t letter) {
    constexpr TextView Letters = u"abcdefghijklmnopqrstuvwxyzäöüß";
    constexpr TextView Keys = u"222333444555666777788899992687";
    const std::size_t place = Letters.find(LowerCase(letter));
    return place == TextView::npos ? u'0' : Keys[place];
}

/// Words in front of an extension's digits.
bool IsExtensionWord(TextView word) {
    static constexpr std::array<TextView, 12> Words = {
        u"x",   u"ext",     u"extn", u"extension", u"dw",          u"durchwahl",
        u"app", u"apparat", u"nst",  u"kl",        u"nebenstelle", u"klappe"};
    const Text lowered = LowerCase(word);
    return std::find(Words.begin(), Words.end(), lowered) != Words.end();
}

/// Words that people write beside a number to tell what it is.
bool IsRemark(TextView word) {
    static constexpr std::array<TextView, 32> Words = {
        u"tel",     u"telefon",      u"phone",        u"fon",    u"fax",      u"telefax",
        u"mobil",   u"mobile",       u"mobiltelefon", u"handy",  u"cell",     u"privat",
        u"private", u"zuhause",      u"home",         u"work",   u"office",   u"büro",
        u"buero",   u"geschäftlich", u"dienstlich",   u"arbeit", u"zentrale", u"notruf",
        u"hotline", u"kostenlos",    u"oder",         u"und",    u"bis",      u"voicemail",
        u"mailbox", u"sekretariat"};
    const Text lowered = LowerCase(word);
    return std::find(Words.begin(), Words.end(), lowered) != Words.end();
}

/// Whether the digits in front of a word are those of numbers that are given as words.
bool IsService(TextView digits) {
    constexpr std::size_t Longest = 7;
    static constexpr std::array<TextView, 13> Services = {u"800", u"700", u"900", u"180", u"137",
                                                          u"190", u"801", u"833", u"844", u"855",
                                                          u"866", u"877", u"888"};
    if (digits.size() > Longest) {
        return false;
    }
    return std::any_of(Services.begin(), Services.end(), [digits](TextView service) {
        return digits.ends_with(service) ||
               (digits.starts_with(u'1') &&  // of North America
                digits.substr(1).starts_with(service)) ||
               // "0180 5" has a digit more
               (digits.size() == service.size() + 2 && digits.starts_with(u'0') &&
                digits.substr(1).starts_with(service));
    });
}

/// So many letters at least stand for their keys; fewer are a mark.
constexpr std::ptrdiff_t FewestLetters = 3;

/// Whether the letters of a number stand for their keys: behind a service's number, or in capitals
/// directly behind digits that leave room for them.
bool IsGivenInLetters(TextView number) {
    constexpr std::ptrdiff_t MostDigits = 15;  // of any telephone number
    const auto* const first = std::find_if(number.begin(), number.end(), IsLetter);
    Text before;
    std::copy_if(number.begin(), first, std::back_inserter(before), IsDigit);
    const std::ptrdiff_t letters = std::count_if(first, number.end(), IsLetter);
    if (before.empty() || letters < FewestLetters) {
        return false;
    }
    const bool isCapital = std::all_of(first, number.end(), [](char16_t character) {
        return !IsLetter(character) || (character >= u'A' && character <= u'Z');
    });
    const char16_t behind = *std::prev(first);
    return IsService(before) ||
           (isCapital && static_cast<std::ptrdiff_t>(before.size()) + letters <= MostDigits &&
            std::find_if_not(first, number.end(), IsLetter) - first >= FewestLetters &&
            (IsDigit(behind) || behind == u'-'));
}

/// "%2B" and the like of an address as the characters that they stand for.
Text WithoutPercents(TextView address) {
    constexpr TextView Digits = u"0123456789abcdef";
    Text text;
    for (std::size_t i = 0; i < address.size(); ++i) {
        const bool isCode = address[i] == u'%' && i + 2 < address.size();
        const std::size_t high = isCode ? Digits.find(LowerCase(address[i + 1])) : TextView::npos;
        const std::size_t low = isCode ? Digits.find(LowerCase(address[i + 2])) : TextView::npos;
        if (high < Digits.size() / 2 && low != TextView::npos) {  // an ASCII character
            text.push_back(static_cast<char16_t>(high * Digits.size() + low));
            i += 2;
        } else {
            text.push_back(address[i]);
        }
    }
    return text;
}

/// A number without what stands behind it as ";name=value".
struct Stripped {
    TextView Number;
    bool HasExtension = false;  ///< or something else that is not dialled
};

/// The number stands in `room`.
Stripped WithoutParameters(TextView number, Text& room) {
    bool hasExtension = false;
    room.clear();
    for (bool first = true; first || !number.empty(); first = false) {
        const std::size_t end = std::min(number.find(u';'), number.size());
        const TextView part = number.substr(0, end);
        number.remove_prefix(std::min(end + 1, number.size()));
        const std::size_t equals = part.find(u'=');
        if (first) {
            room = part;
            continue;
        }
        const Text name = LowerCase(TrimBlanks(part.substr(0, equals)));
        if (equals == TextView::npos) {
            if (std::none_of(part.begin(), part.end(), IsLetter) ||
                std::any_of(part.begin(), part.end(), IsDialled)) {
                room.append(u";").append(part);  // the mark of a pause
            }
        } else if (name == u"ext") {
            hasExtension = true;
        } else if (name == u"phone-context" && part.substr(equals + 1).starts_with(u'+') &&
                   !room.starts_with(u'+')) {
            room.insert(0, part.substr(equals + 1));
        }
    }
    return {.Number = room, .HasExtension = hasExtension};
}

/// The number stands in itself or in `room`.
Stripped WithoutAddress(TextView number, Text& room) {
    number = TrimBlanks(number);
    if (std::none_of(number.begin(), number.end(), [](char16_t character) {
            return character == u':' || character == u';' || character == u'@';
        })) {
        return {.Number = number};
    }
    const std::size_t host = std::min(number.find(u'@'), number.size());
    if (host < number.size() &&
        (LowerCase(number.substr(0, 3)) == u"sip" ||
         std::any_of(number.begin() + static_cast<std::ptrdiff_t>(host), number.end(), IsLetter))) {
        const std::size_t end = std::min(number.find(u';'), host);
        return {.Number = number.substr(0, end), .HasExtension = true};
    }
    for (const TextView scheme : {u"tel:", u"callto:"}) {
        if (LowerCase(number.substr(0, scheme.size())) == scheme) {
            return WithoutParameters(WithoutPercents(number.substr(scheme.size())), room);
        }
    }
    return WithoutParameters(number, room);
}

/// Goes through a number from left to right.
class Dialling {
  public:
    Dialling(TextView number, DialledNumber& result) : number_(number), result_(result) {
        Digits.reserve(number.size());
        while (place_ < number_.size()) {
            Take();
        }
    }

    /// Digits in front of a "+", as codes stand there.
    Text Code;
    bool HasPlus = false;
    Text Digits;
    bool MayGoOn = false;  ///< behind the digits, with letters that nobody can tell

  private:
    [[nodiscard]] char16_t At(std::size_t place) const {
        return place < number_.size() ? number_[place] : u'\0';
    }
    [[nodiscard]] std::size_t BehindBlanks(std::size_t place, TextView blanks = u" ") const {
        return std::min(number_.find_first_not_of(blanks, place), number_.size());
    }

    void Take() {
        const char16_t character = At(place_);
        if (IsDialled(character)) {
            Digits.push_back(character);
        } else if (character == u'+') {
            TakePlus();
        } else if (character == u'(') {
            place_ = BehindTrunkZero();
        } else if (IsSeparator(character)) {
            TakeSeparator(character);
        } else if (IsLetter(character)) {
            TakeWord();
            return;
        }
        ++place_;
    }

    static bool IsSeparator(char16_t character) {
        return character == u':' || character == u'/' || character == u',' || character == u';';
    }

    void TakeSeparator(char16_t separator) {
        if (BeginsAnother(separator)) {
            EndHere();
        } else if (separator == u',' || separator == u';') {
            TakePause(separator == u',' ? u'p' : u'w');
        }
    }

    /// Whether the character parts the digits so far from those of another number.
    [[nodiscard]] bool BeginsAnother(char16_t character) const {
        const char16_t behind = At(BehindBlanks(place_ + 1));
        const bool isPause = character == u',' || character == u';';
        // Behind an area or country code there may be a stroke with blanks, too.
        constexpr std::size_t LongestCode = 5;
        const bool mayPart = isPause || (character == u'/' && Digits.size() > LongestCode);
        return !Digits.empty() &&
               (character == u':' || (character == u'/' && At(place_ + 1) == u'/') ||
                (mayPart && At(place_ + 1) == u' ' && (behind == u'0' || behind == u'+')));
    }

    void TakePlus() {
        const bool mayOpen =
            Digits.empty() || Digits == u"0" || Digits.back() == u'#' || Digits.back() == u'*';
        if (!HasPlus && mayOpen) {
            Code = Digits;
            Digits.clear();
            HasPlus = true;
        } else if (!Digits.empty()) {  // another number begins
            EndHere();
        }
    }

    /// The place of the bracket behind the "(0)" of an international number, else this one.
    [[nodiscard]] std::size_t BehindTrunkZero() const {
        const std::size_t zero = BehindBlanks(place_ + 1);
        const std::size_t end = BehindBlanks(zero + 1);
        const bool isAbroad = HasPlus || Digits.starts_with(u"00");
        return isAbroad && At(zero) == u'0' && At(end) == u')' ? end : place_;
    }

    void TakePause(char16_t pause) {
        if (!Digits.empty()) {
            Digits.push_back(pause);
        }
    }

    void TakeWord() {
        std::size_t end = place_;
        while (IsLetter(At(end))) {
            ++end;
        }
        const TextView word = number_.substr(place_, end - place_);
        const std::size_t behind = BehindBlanks(end, u" .:#=");
        const bool isExtension = !Digits.empty() && IsExtensionWord(word) && IsDigit(At(behind));
        if (TakeMarks(word, end)) {
        } else if (!isExtension && !IsRemark(word) && IsGivenInLetters(number_)) {
            std::transform(word.begin(), word.end(), std::back_inserter(Digits), KeyOf);
            result_.LettersAsDigits = true;
        } else if (!Digits.empty()) {  // an extension follows, or another number
            MayGoOn = !isExtension && !IsRemark(word) && IsAttached(word);
            EndHere();
            return;
        } else {
            result_.LeftOut = true;
        }
        place_ = end;
    }

    /// Whether the word may be a part of the number whose digits stand in front of it.
    [[nodiscard]] bool IsAttached(TextView word) const {
        const char16_t before = At(place_ - 1);
        return static_cast<std::ptrdiff_t>(word.size()) >= FewestLetters &&
               (IsDialled(before) || before == u'-');
    }

    /// Takes letters that the telephone knows between digits: pauses, "A" and the "i" of internal
    /// numbers.
    bool TakeMarks(TextView word, std::size_t end) {
        if (!IsDialled(At(end))) {
            return false;
        }
        if (word == u"i" && Digits.empty() && Code.empty() && !HasPlus) {
            Digits = word;
            return true;
        }
        const bool isPause = LowerCase(word).find_first_not_of(u"pw") == Text::npos;
        if (Digits.empty() || !IsDialled(At(place_ - 1)) || (!isPause && word != u"A")) {
            return false;
        }
        Digits.append(isPause ? LowerCase(word) : Text(word));
        return true;
    }

    void EndHere() {
        result_.LeftOut = true;
        place_ = number_.size();
    }

    TextView number_;
    DialledNumber& result_;
    std::size_t place_ = 0;
};

}  // namespace

Text OwnCountryCode(const Settings& settings) {
    Text digits;
    std::copy_if(settings.InternationalPrefix.begin(), settings.InternationalPrefix.end(),
                 std::back_inserter(digits), IsDigit);
    return digits.substr(std::min(digits.find_first_not_of(u'0'), digits.size()));
}

Text ShownNumber(TextView number) {
    Text room;
    Text shown(TrimBlanks(WithoutAddress(number, room).Number));
    return Dialled(shown, {}).Number == Dialled(number, {}).Number ? shown : Text(number);
}

DialledNumber Dialled(TextView number, TextView ownCountry) {
    DialledNumber result;
    Text room;
    const Stripped stripped = WithoutAddress(number, room);
    result.LeftOut = stripped.HasExtension;
    Dialling dialling(stripped.Number, result);
    Text& digits = dialling.Digits;
    while (!digits.empty() && (digits.back() == u'p' || digits.back() == u'w')) {
        digits.pop_back();
    }
    if (dialling.MayGoOn || std::none_of(digits.begin(), digits.end(), IsDigit)) {
        return result;
    }
    if (dialling.HasPlus && !ownCountry.empty() && digits.starts_with(ownCountry)) {
        const bool hasZero = TextView(digits).substr(ownCountry.size()).starts_with(u'0');
        digits.replace(0, ownCountry.size(), hasZero ? u"" : u"0");
    } else if (dialling.HasPlus) {
        digits.insert(0, u"00");
        result.PlusWithoutCountry = ownCountry.empty();
    }
    digits.insert(0, dialling.Code);
    result.Number = std::move(digits);
    return result;
}

}  // namespace norvik
