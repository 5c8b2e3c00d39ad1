# Reads a message from the standard input with Python's parser and prints what a mail program would show, a line each.
import email, email.policy, email.utils, sys
message = email.message_from_binary_file(sys.stdin.buffer, policy=email.policy.default)
part = message.get_body(("plain",))
for value in (message["From"], message["Reply-To"], message["To"], message["Subject"], message.get_content_type(),
              len(list(message.iter_parts())), len(message.defects) + len(part.defects), len(message.keys()),
              repr(part.get_content().replace("\r\n", "\n"))):
    sys.stdout.buffer.write(f"{value}\n".encode())
