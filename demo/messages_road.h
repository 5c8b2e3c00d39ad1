#pragma once

class ScreenHands;
class Simulator;

/// The stations at SMS, e-mail and incoming calls, against a simulator that the program's settings name. Need the customers
/// "ÇİĞDEM ÖZTÜRK" with the mobile number 05321234567 and "HASAN YILMAZ". All begin at the empty workspace and end there unless told otherwise.
namespace MessagesRoad {

/// Signs in to a gateway, looks at the templates and saves.
void signIn(ScreenHands& hands, const Simulator& simulator);
/// One text to the customers of the list.
void sendToMany(ScreenHands& hands, const Simulator& simulator);
/// The mail account, and its test.
void tryMailAccount(ScreenHands& hands, const Simulator& simulator);
/// A slip that is taken in tells its customer by SMS; it stays open.
void tellTheCustomer(ScreenHands& hands, const Simulator& simulator);
/// Calls of a stranger and of a customer, and the list of the day's calls.
void takeCalls(ScreenHands& hands);

}  // namespace MessagesRoad
