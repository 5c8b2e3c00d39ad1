#pragma once

#include <QString>

/// The services that the simulator plays.
enum class Service { Json, Form, Xml, Mail, Rates };
constexpr int serviceCount = 5;

/// How a service answers.
enum class Mood {
  Normal,
  Refuse,   ///< in the words of its protocol, with code where it has codes; mail: at the step "selam", "giris", "alici" or "veri"
  Status,   ///< with the HTTP status code alone
  Cut,      ///< half of the answer, then the line goes dead
  Rubbish,  ///< bytes of no protocol, with code as their seed
  Silent,   ///< takes the request and never answers
};

struct Behaviour {
  Mood mood = Mood::Normal;
  QString code;
  int delayMs = 0;  ///< before anything of the answer
};
