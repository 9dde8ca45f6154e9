#include <gammu.h>
#include <gtest/gtest.h>

#include <random>

#include "fakes/matchers.h"
#include "sms/gsm_alphabet.h"
#include "sms/received_pdu.h"
#include "sms/submit_pdu.h"

namespace trunvex {
namespace {

std::string fromGammu(const unsigned char* utf16) {
    std::vector<char> text(4 * static_cast<std::size_t>(UnicodeLength(utf16)) + 1);
    EncodeUTF8(text.data(), utf16);
    return text.data();
}

// What the judge makes of a PDU.
struct Judged {
    explicit Judged(const std::string& hexadecimal) {
        std::vector<unsigned char> octets;
        for (std::size_t i = 0; i + 1 < hexadecimal.size(); i += 2)
            octets.push_back(static_cast<unsigned char>(std::stoi(hexadecimal.substr(i, 2), nullptr, 16)));
        GSM_SetDefaultSMSData(&sms);
        error = GSM_DecodePDUFrame(GSM_GetGlobalDebug(), &sms, octets.data(), octets.size(), nullptr, TRUE);
        number = fromGammu(sms.Number);
        centre = fromGammu(sms.SMSC.Number);
        text = fromGammu(sms.Text);
    }
    GSM_SMSMessage sms{};
    GSM_Error error;
    std::string number;
    std::string centre;
    std::string text;
};

// A received message with the user data of one that was encoded to be sent to a number of eight digits.
std::string received(const std::string& submit, const std::string& sender) {
    const bool header = submit.at(2) == '5';
    const auto coding = submit.substr(2 * 10, 2);
    return std::string("00") + (header ? "44" : "04") + sender + "00" + coding + "62113281044180" +
           submit.substr(2 * 12);
}

std::string randomText(std::mt19937& random, bool wide, std::size_t length) {
    static const auto narrow =
        charactersOf("abc XYZ019@£$¥èéùìòÇ\nØøÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ!\"#¤%&'()*+,-./:;<=>?¡ÄÖÑÜ§¿äöñüà^{}\\[~]|€");
    static const auto all = charactersOf("aZ9 éßжשلا你好中😀🚀é€\U00010437");
    const auto& from = wide ? all : narrow;
    std::string text;
    for (std::size_t i = 0; i < length; ++i) appendUtf8(text, from[random() % from.size()]);
    return text;
}

TEST(Pdu, IsReadByAnIndependentJudgeAsItWasMeant) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const bool wide = round % 2 != 0;
        SubmitMessage message{"+999555010", round % 3 == 0 ? "+99955512" : "05551234",
                              randomText(random, wide, random() % 400), wide ? SmsAlphabet::Ucs2 : SmsAlphabet::Gsm7,
                              static_cast<std::uint16_t>(random())};
        std::string ours;
        std::string theirs;
        int part = 0;
        const auto pdus = encodeSubmit(message);
        for (const auto& pdu : pdus) {
            const Judged judged(pdu);
            ASSERT_EQ(judged.error, ERR_NONE) << pdu;
            ASSERT_EQ(judged.number + " " + judged.centre, message.destination + " " + message.serviceCentre);
            theirs += judged.text;
            ++part;
            const auto back = decodePdu(pdu);
            ASSERT_EQ(back.number + " " + back.serviceCentre, message.destination + " " + message.serviceCentre);
            ours += back.text;
            if (pdus.size() == 1) continue;
            ASSERT_EQ(judged.sms.UDH.AllParts * 1000 + judged.sms.UDH.PartNumber,
                      static_cast<int>(pdus.size()) * 1000 + part);
            ASSERT_EQ(judged.sms.UDH.ID16bit, message.reference);
            ASSERT_EQ(back.part, (ReceivedMessage::Part{message.reference, true, static_cast<std::uint8_t>(pdus.size()),
                                                        static_cast<std::uint8_t>(part)}));
        }
        ASSERT_EQ(theirs, message.text);
        ASSERT_EQ(ours, message.text);
    }
}

TEST(Pdu, ReadsWhatCameAsTheJudgeDoes) {
    std::mt19937 random(11);
    const char* senders[] = {"0B919995551032F4", "05815521F3", "09A155015510F3", "0DD0D3B23CDD0EA301", "0091"};
    for (int round = 0; round < 2000; ++round) {
        SubmitMessage message{"", "05551234", randomText(random, round % 2 != 0, random() % 200),
                              round % 2 != 0 ? SmsAlphabet::Ucs2 : SmsAlphabet::Gsm7, 77};
        for (const auto& submit : encodeSubmit(message)) {
            const auto pdu = received(submit, senders[static_cast<std::size_t>(round) % std::size(senders)]);
            const Judged judged(pdu);
            const auto ours = decodePdu(pdu);
            ASSERT_EQ(judged.error, ERR_NONE) << pdu;
            ASSERT_EQ(ours.text, judged.text) << pdu;
            ASSERT_EQ(ours.number, judged.number) << pdu;
            ASSERT_EQ(ours.timeStamp, "2026-11-23 18:40:14 +02:00");
        }
    }
}

TEST(Pdu, ReadsEachLayoutAndCodingGroup) {
    using Message = ReceivedMessage;
    struct Case {
        const char* pdu;
        std::string told;  // number|text|data|part
    };
    const auto told = [](const Message& one) {
        return one.number + "|" + one.text + "|" + one.data +
               (one.part ? "|" + std::to_string(one.part->reference) + "." + std::to_string(one.part->number) : "");
    };
    const std::string front = "0004048112340000";
    const std::string stamp = "62113281044180";
    for (const auto& [pdu, expected] : std::vector<std::pair<std::string, std::string>>{
             {"00040481123400F0" + stamp + "0361F118", "2143|abc|"},  // flash
             {"00040481123400E0" + stamp + "0220AC", "2143|€|"},      // a message waits
             {"00040481123400C8" + stamp + "0361F118", "2143|abc|"},  // the same in 7-bit
             {"000404811234000C" + stamp + "0361F118", "2143|abc|"},  // reserved
             {"0004048112340080" + stamp + "0361F118", "2143|abc|"},
             {"00040481123400F5" + stamp + "02BEEF", "2143||BEEF"},  // data of a class
             {"0004048112340020" + stamp + "02BEEF", "2143||BEEF"},  // compressed
             {"0004048112340008" + stamp + "04D83DDE00", "2143|😀|"},
             {"0004048112340008" + stamp + "03D83D41", "2143|\xEF\xBF\xBD|"},  // half a pair and half a unit
             {"0004048112AB0000" + stamp + "00", "21#*||"}}) {
        EXPECT_EQ(told(decodePdu(pdu)), expected) << pdu;
    }
    // A header of 8 bits' reference behind one of ports: fill bits before the text.
    const Septets letters{0x61, 0x62, 0x63};
    const auto header = std::string("0B0504158200000003A10201");
    const unsigned fill = (7 - 12 * 8 % 7) % 7;
    std::string packed;
    for (const auto octet : packSeptets(letters, fill)) {
        constexpr char digits[] = "0123456789ABCDEF";
        packed += {digits[octet >> 4], digits[octet & 15]};
    }
    EXPECT_EQ(told(decodePdu("0044048112340000" + stamp + "11" + header + packed)), "2143|abc||161.1");
    // Stored to be sent, with each way to tell a validity; a report with and without what may follow.
    EXPECT_EQ(told(decodePdu("0001000481123400000361F118")), "2143|abc|");
    EXPECT_EQ(told(decodePdu("001100048112340000AA0361F118")), "2143|abc|");
    EXPECT_EQ(told(decodePdu("001900048112340000" + stamp + "0361F118")), "2143|abc|");
    const auto report = decodePdu(
        "0006220481"
        "1234" +
        stamp + stamp + "30");
    EXPECT_EQ(report.kind, Message::Kind::StatusReport);
    EXPECT_EQ(report.status, 0x30);
    EXPECT_EQ(told(decodePdu("00062204811234" + stamp + stamp +
                             "0006"
                             "08"
                             "0200E4")),
              "2143|ä|");
    EXPECT_EQ(decodePdu("0004048112340000"
                        "99212190000008"
                        "00")
                  .timeStamp,
              "1999-12-12 09:00:00 -00:00");
}

TEST(Pdu, ABadOneIsNamedAndNothingElse) {
    const std::string good = "07919995550100F004048112340000621132810441800AE1F1789CBE7FB3D9EC36";
    EXPECT_NO_THROW(decodePdu(good.substr(0)));
    for (std::size_t length = 0; length + 2 < good.size(); ++length)
        EXPECT_THROW(decodePdu(std::string_view(good).substr(0, length)), BadPdu) << length;
    for (const auto* bad : {"zz", "0003", "00FF", "000416811234",
                            "0004048112340000"
                            "AA113281044180"
                            "00",
                            "0004048112340000"
                            "62113281044180"
                            "A1",
                            "0044048112340000"
                            "62113281044180"
                            "02FFFF",
                            "0044048112340000"
                            "62113281044180"
                            "05030805",
                            "0044048112340000"
                            "62113281044180"
                            "00"})
        EXPECT_THROW(decodePdu(bad), BadPdu) << bad;
    EXPECT_THROW(decodePdu(std::string(802, '0')), BadPdu);
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        auto pdu = good;
        for (int i = 0; i < 3; ++i) pdu[random() % pdu.size()] = "0123456789ABCDEF"[random() % 16];
        try {
            decodePdu(pdu);
        } catch (const BadPdu&) {
        }
    }
}

TEST(Pdu, SplitsByWhatIsBuiltAndRefusesWhatCantBeSent) {
    const auto count = [](const std::string& text, SmsAlphabet alphabet = SmsAlphabet::Gsm7) {
        return encodeSubmit({"", "1", text, alphabet, 1}).size();
    };
    EXPECT_EQ(count(std::string(160, 'a')) * 10 + count(std::string(161, 'a')), 12U);
    EXPECT_EQ(count(std::string(159, 'a') + "€"), 2U) << "161 septets";
    EXPECT_EQ(count(std::string(304, 'a')) * 10 + count(std::string(303, 'a') + "{"), 23U);
    EXPECT_EQ(count(std::string(70, 'a'), SmsAlphabet::Ucs2) * 10 + count(std::string(71, 'a'), SmsAlphabet::Ucs2),
              12U);
    // The 152nd septet would be an escape.
    const auto pdus = encodeSubmit({"", "1", std::string(151, 'a') + "€" + std::string(20, 'b'), SmsAlphabet::Gsm7, 1});
    EXPECT_EQ(decodePdu(pdus.at(1)).text, "€" + std::string(20, 'b'));
    EXPECT_EQ(tpduLength("07919995550100F0"
                         "11000181F1000000"),
              8U);
    EXPECT_EQ(tpduLength("0011000181F1000000"), 8U);
    EXPECT_THROW(encodeSubmit({"", "12a", "", SmsAlphabet::Gsm7, 1}), std::invalid_argument);
    EXPECT_THROW(encodeSubmit({"", "+", "", SmsAlphabet::Gsm7, 1}), std::invalid_argument);
    EXPECT_THROW(encodeSubmit({"", std::string(21, '1'), "", SmsAlphabet::Gsm7, 1}), std::invalid_argument);
    EXPECT_THROW(encodeSubmit({"", "1", "ж", SmsAlphabet::Gsm7, 1}), std::invalid_argument);
    EXPECT_THROW(count(std::string(152 * 255 + 1, 'a')), std::invalid_argument);
    EXPECT_THAT(charactersLacking("aж€жש\xFF"), testing::ElementsAre("ж", "ש", "\xEF\xBF\xBD"));
}

}  // namespace
}  // namespace trunvex
