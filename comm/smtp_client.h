#pragma once

#include "comm/http_client.h"
#include "comm/mail_sequences.h"

/// The program's one way to a mail server: plain SMTP on the given port, by RFC 5321.
namespace SmtpClient {

/// Hands the message over and waits, on the calling thread. Connecting has 10 seconds and the whole 30 seconds to end. Throws ENetworkError while connecting, ESmtpError from then on; one refused recipient refuses the message.
void send(const MailSettings& settings, const MailMessage& message, long timeoutMs = HttpClient::usualTimeoutMs);

}  // namespace SmtpClient
