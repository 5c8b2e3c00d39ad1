# The same with Email::MIME.
use strict; use warnings; use utf8; use Email::MIME;
binmode STDIN; binmode STDOUT, ":utf8";
my $mail = Email::MIME->new(do { local $/; <STDIN> });
my @parts = $mail->subparts;
my ($type) = $mail->content_type =~ m{^([^;]+)};
print join("\n", $mail->header_str("To"), $mail->header_str("Subject"), $type, scalar @parts, $parts[0]->body_str =~ s/\r\n/\\n/gr), "\n";
