// What the validated fields accept, against a computation of its own for each form.

#include "tests/widgets/WidgetTest.h"

#include "widgets/ValidatedFields.h"

#include <cstdlib>
#include <random>

namespace {

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts(1);
    for (const char c : text)
        if (c == at)
            parts.emplace_back();
        else
            parts.back() += c;
    return parts;
}

bool all(const std::string& text, int (*is)(int)) {
    for (const unsigned char c : text)
        if (!is(c)) return false;
    return true;
}

// Decimal 0 to 255; how many digits there may be, and whether zeros may lead, differs by form.
bool isOctet(const std::string& text, bool leadingZeros) {
    if (text.empty() || text.size() > 3 || !all(text, std::isdigit)) return false;
    return std::stoi(text) <= 255 && (leadingZeros || text.size() == 1 || text[0] != '0');
}

bool isIpV4(const std::string& text, bool leadingZeros = true) {
    const auto parts = split(text, '.');
    if (parts.size() != 4) return false;
    for (const std::string& part : parts)
        if (!isOctet(part, leadingZeros)) return false;
    return true;
}

bool isGroup(const std::string& text) {
    return !text.empty() && text.size() <= 4 && all(text, std::isxdigit);
}

// Groups of one side of a "::", or of the whole address; -1 = malformed. The last one may be an IPv4 address,
// which counts two.
int countGroups(const std::string& text, bool mayEndInV4) {
    if (text.empty()) return 0;
    const auto parts = split(text, ':');
    int groups = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (mayEndInV4 && i + 1 == parts.size() && isIpV4(parts[i], false))
            groups += 2;
        else if (isGroup(parts[i]))
            ++groups;
        else
            return -1;
    }
    return groups;
}

// RFC 4291, 2.2. A "::" stands for one group or more.
bool isIpV6(const std::string& text) {
    const std::size_t gap = text.find("::");
    if (gap == std::string::npos) return countGroups(text, true) == 8;
    if (text.find("::", gap + 1) != std::string::npos) return false;
    const int before = countGroups(text.substr(0, gap), false);
    const int behind = countGroups(text.substr(gap + 2), true);
    return before >= 0 && behind >= 0 && before + behind <= 7;
}

// Four octets with any character between them: the dots of an IPv4 tail are accepted as that.
bool isLooseTail(const std::string& text, int octets = 4) {
    for (std::size_t digits = 1; digits <= 3 && digits <= text.size(); ++digits) {
        if (!isOctet(text.substr(0, digits), false)) continue;
        if (octets == 1 ? digits == text.size()
                        : digits < text.size() && isLooseTail(text.substr(digits + 1), octets - 1))
            return true;
    }
    return false;
}

bool isAcceptedAsIpV6(const std::string& text) {
    if (isIpV6(text)) return true;
    for (std::size_t at = text.find(':'); at != std::string::npos; at = text.find(':', at + 1))
        if (isLooseTail(text.substr(at + 1)) && isIpV6(text.substr(0, at + 1) + "0.0.0.0")) return true;
    return false;
}

// At least two labels of RFC 1123; all but the last of two characters or more, the last
// beginning with a letter.
bool isHostName(const std::string& text) {
    const auto labels = split(text, '.');
    if (labels.size() < 2) return false;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string& label = labels[i];
        const bool last = i + 1 == labels.size();
        if (label.size() < (last ? 1U : 2U) || label.size() > 63) return false;
        if (last ? !std::isalpha(static_cast<unsigned char>(label.front()))
                 : !std::isalnum(static_cast<unsigned char>(label.front())))
            return false;
        if (!std::isalnum(static_cast<unsigned char>(label.back()))) return false;
        for (const unsigned char c : label)
            if (!std::isalnum(c) && c != '-') return false;
    }
    return true;
}

bool isMac(const std::string& text) {
    const char separator = text.find('-') != std::string::npos ? '-' : ':';
    const auto pairs = split(text, separator);
    if (pairs.size() != 6 && pairs.size() != 8) return false;
    for (const std::string& pair : pairs)
        if (pair.size() != 2 || !all(pair, std::isxdigit)) return false;
    return true;
}

bool isEid(const std::string& text) {
    return text.size() == 13 && text[6] == '-' && all(text.substr(0, 6), std::isalnum) &&
           all(text.substr(7), std::isalnum);
}

class ValidatedFields : public WidgetTest {
protected:
    template <class Field>
    bool accepts(Field& field, const std::string& text) {
        typeOnly(field, text.c_str());
        return field.isValid();
    }

    std::string group() {
        char text[8];
        std::snprintf(text, sizeof text, random() % 3 ? "%x" : "%04X",
                      static_cast<unsigned>(random() & 0xFFFF));
        return text;
    }
    std::string ipV4() {
        std::string text;
        for (int i = 0; i < 4; ++i) text += (i ? "." : "") + std::to_string(random() % 300);
        return text;
    }
    // A good address more often than not.
    std::string ipV6() {
        const bool v4 = random() % 4 == 0;
        const unsigned groups = (random() % 5 ? 8 : random() % 11) - (v4 ? 2 : 0);
        const unsigned gap = random() % 2 ? random() % 9 : 99;
        const unsigned hidden = random() % 9;
        std::string text;
        for (unsigned i = 0; i < groups && groups < 20; ++i) {
            if (i == gap) {
                text += text.empty() ? "::" : ":";
                i += hidden;
                if (i >= groups) break;
            }
            text += group() + ":";
        }
        if (v4) return text + ipV4();
        if (!text.empty() && text.back() == ':' && !(text.size() > 1 && text[text.size() - 2] == ':'))
            text.pop_back();
        return text;
    }
    std::string hostName() {
        static const std::string characters = "abXY09-.";
        std::string text;
        for (unsigned i = random() % 20; i; --i) text += characters[random() % characters.size()];
        return text + (random() % 2 ? ".example" : "");
    }
    std::string mac() {
        static const char* const separators[] = {":", "-", ":", "-", ""};
        const char* separator = separators[random() % 5];
        const unsigned pairs = random() % 3 ? 6 + 2 * (random() % 2) : random() % 10;
        std::string text;
        char pair[4];
        for (unsigned i = 0; i < pairs; ++i) {
            std::snprintf(pair, sizeof pair, "%02x", static_cast<unsigned>(random() & 0xFF));
            text += (i ? separator : "") + std::string(pair);
        }
        return text;
    }
    // One character changed, doubled or taken away.
    std::string broken(std::string text) {
        if (text.empty()) return text;
        static const std::string characters = "0:.-gG 9F";
        const std::size_t at = random() % text.size();
        switch (random() % 3) {
        case 0:
            text[at] = characters[random() % characters.size()];
            break;
        case 1:
            text.insert(at, 1, text[at]);
            break;
        default:
            text.erase(at, 1);
        }
        return text;
    }

    std::mt19937 random{20261122};
};

TEST_F(ValidatedFields, ThousandsOfAddressesGoodAndBad) {
    WIpV4Addr v4("r", "t", true, page());
    WIpV6Addr v6("r", "t", true, page());
    WIpAddr ip("r", "t", true, page());
    WHostAddr host("r", "t", true, page());
    WMacAddr mac6("r", "t", true, page());
    int good[4] = {};
    for (int i = 0; i < 3000; ++i) {
        for (std::string text : {ipV4(), ipV6(), hostName(), mac()}) {
            if (i % 3 == 0) text = broken(text);
            const bool is4 = isIpV4(text);
            const bool is6 = isAcceptedAsIpV6(text);
            ASSERT_EQ(accepts(v4, text), text.empty() || is4) << text;
            ASSERT_EQ(accepts(v6, text), text.empty() || is6) << text;
            ASSERT_EQ(accepts(ip, text), text.empty() || is4 || is6) << text;
            ASSERT_EQ(accepts(host, text), text.empty() || is4 || is6 || isHostName(text)) << text;
            ASSERT_EQ(accepts(mac6, text), text.empty() || isMac(text)) << text;
            good[0] += is4;
            good[1] += is6;
            good[2] += isHostName(text);
            good[3] += isMac(text);
        }
    }
    for (const int count : good) EXPECT_GT(count, 500) << "too few good ones to prove anything";
}

TEST_F(ValidatedFields, KnownOnes) {
    const struct {
        const char* text;
        bool v4, v6, host;
    } rows[] = {
        {"256.1.1.1", false, false, false},
        {"1.1.1.1", true, false, true},
        {"001.02.3.255", true, false, true},
        {"1.1.1", false, false, false},
        {"1.1.1.1.", false, false, false},
        {" 1.1.1.1", false, false, false},
        {"1.1.1.1\n", false, false, false},
        {"::", false, true, true},
        {"::1", false, true, true},
        {"1::", false, true, true},
        {":::", false, false, false},
        {"1::2::3", false, false, false},
        {"2001:db8::8a2e:370:7334", false, true, true},
        {"2001:db8:0:0:0:0:2:1", false, true, true},
        {"1:2:3:4:5:6:7::", false, true, true},
        {"::2:3:4:5:6:7:8", false, true, true},
        {"1:2:3:4:5:6:7:8:9", false, false, false},
        {"::ffff:192.0.2.128", false, true, true},
        {"1:2:3:4:5:6:192.0.2.128", false, true, true},
        {"1:2:3:4:5:6:7:192.0.2.128", false, false, false},
        {"::192x0y2z128", false, true, true}, // accepted, as it always was
        {"fe80::1%eth0", false, false, false},
        {"[::1]", false, false, false},
        {"time.example", false, false, true},
        {"a.example", false, false, false}, // a label of one character only at the end
        {"ab.c", false, false, true},
        {"localhost", false, false, false},
        {"-ab.example", false, false, false},
        {"ab-.example", false, false, false},
        {"ab..example", false, false, false},
        {"ab.example.", false, false, false},
        {"12.34", false, false, false},
        {"b\xC3\xBC.example", false, false, false},
    };
    WIpV4Addr v4("r", "t", true, page());
    WIpV6Addr v6("r", "t", true, page());
    WHostAddr host("r", "t", true, page());
    for (const auto& r : rows) {
        EXPECT_EQ(accepts(v4, r.text), r.v4) << r.text;
        EXPECT_EQ(accepts(v6, r.text), r.v6) << r.text;
        EXPECT_EQ(accepts(host, r.text), r.host) << r.text;
    }
    WEid eid("r", "t", true, page());
    for (const char* text : {"00A702-020011", "abcdef-ABCDEF", "00A702020011", "00A702-02001",
                             "00A702-0200111", "00A70_-020011", "00A702-020011 "})
        EXPECT_EQ(accepts(eid, text), isEid(text)) << text;
}

TEST_F(ValidatedFields, NumbersWithinTheirRange) {
    WKeyCode key("r", "n", true, page());
    WMouseDelta delta("r", "n", true, page());
    const struct {
        const char* text;
        bool key, delta;
    } rows[] = {{"0", true, true},     {"127", true, true},   {"128", true, false},
                {"255", true, false},  {"256", false, false}, {"-1", false, false},
                {"1.5", false, false}, {"x", false, false},   {"4294967296", false, false},
                {"", true, true}};
    for (const auto& r : rows) {
        EXPECT_EQ(accepts(key, r.text), r.key) << r.text;
        EXPECT_EQ(accepts(delta, r.text), r.delta) << r.text;
    }
    EXPECT_EQ(key.maxLength(), 3);
    key.mandatorySet(true);
    EXPECT_FALSE(accepts(key, ""));
    key.mandatorySet(false);
    EXPECT_TRUE(accepts(key, ""));
}

// Texts that keep a careless matcher busy for years. They are decided, and so is what comes behind them.
TEST_F(ValidatedFields, HostileTextsAreDecided) {
    WHostAddr host("r", "t", true, page());
    WIpV6Addr v6("r", "t", true, page());
    WIpAddr ip("r", "t", true, page());
    std::vector<std::string> hostile = {
        std::string(255, 'a'),        std::string(255, 'a') + "!",
        std::string(255, ':'),        std::string(200, '-') + ".a",
        "::" + std::string(250, '1'), std::string(60, '0') + "." + std::string(60, '0') + "!",
    };
    std::string labels;
    std::string groups;
    std::string dots;
    for (int i = 0; i < 80; ++i) {
        labels += "a-a.";
        groups += "1:";
        dots += "1.1.";
    }
    hostile.insert(hostile.end(),
                   {labels, labels + "!", groups, groups + "x", dots, dots + ":", "::" + dots});
    for (const std::string& text : hostile)
        for (const bool accepted : {accepts(host, text), accepts(v6, text), accepts(ip, text)})
            EXPECT_FALSE(accepted) << text;
    EXPECT_TRUE(accepts(host, "time.example"));
    EXPECT_TRUE(accepts(v6, "2001:db8::1"));
}

} // namespace
