#pragma once

#include <string>
#include <vector>

#include "instruments/nmea.h"
#include "instruments/sentences.h"
#include "support/still_clock.h"

namespace skerrow::testing {

// A sentence of a GPS, from what stands between its first character and "*".
inline std::string GpsSentence(const std::string& body, char start = '$') {
  return Sentence(body, start);
}

// A good RMC at that minute of 50 degrees north, 1 degree 20.25 minutes west.
inline std::string RmcAt(const std::string& time, const std::string& minutes = "30.2500") {
  return GpsSentence("GPRMC," + time + ",A,50" + minutes +
                     ",N,00120.2500,W,5.2,271.5,051226,2.0,W");
}

// Keeps the AIS sentences that it is given and says whether they were good.
class KeptAis final : public AisSentenceSink {
 public:
  bool Take(std::string_view sentence) override {
    sentences.emplace_back(sentence);
    return ChecksumGood(sentence.substr(sentence.find('!')));
  }
  std::vector<std::string> sentences;
};

}  // namespace skerrow::testing
