#pragma once

class SlipScreen;

/// What a customer is told of a slip as it is saved. Decided anew at every save from what stands on the screen; nothing keeps
/// what was sent already: meant. Without the settings screens of SMS and e-mail nothing is sent.
namespace SlipNotices {

/// SMS of a device taken in, and of one that is done. False ends the save.
bool sendIntakeSms(SlipScreen& slip);
bool sendCompletionSms(SlipScreen& slip);
/// E-mail of a device that is done; no outcome touches the slip.
void sendCompletionMail(SlipScreen& slip);

}  // namespace SlipNotices
