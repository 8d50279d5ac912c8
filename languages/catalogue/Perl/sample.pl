#!/usr/bin/env perl
# Counts what a web server wrote into its logs.
use v5.36;
use strict;
use warnings qw(all -void);
use List::Util 1.33 qw(sum0 first), 'max';
no warnings 'experimental::smartmatch';
use constant { LIMIT => 1_000, MASK => 0xFF };

package Log::Line v1.2.3 {
    use parent -norequire, 'Log::Base';

    our $VERSION = '1.04';
    our @EXPORT_OK = qw(parse format_time);
    my %levels = (debug => 0, info => 1, 'warn' => 2, error => 3);

    sub new ($class, %args) {
        my $self = bless { line => '', level => 'info', %args }, $class;
        $self->{stamp} //= time;
        return $self;
    }

    sub level :lvalue { $_[0]->{level} }

    sub _trim(\$) {
        my ($text) = @_;
        $$text =~ s/^\s+|\s+$//g;
        return;
    }

    sub parse ($class, $line, $strict = 1, @) {
        my ($ip, $user, $path) = $line =~ m{
            ^ (\d+ (?:\.\d+){3}) \s   # the address
            (?<user> \S+ ) \s "GET\ ([^"]+)"
        }xi or return undef;
        die "bad line: $line\n" unless defined $ip && length $path;
        return $class->new(ip => $ip, user => $+{user}, path => $path);
    }

    sub DESTROY { local $@; return if ${^GLOBAL_PHASE} eq 'DESTRUCT' }
    1;
}

package main;

BEGIN { unshift @INC, "$ENV{HOME}/lib" }

my %count;
my @paths = map { lc $_->{path} } grep { $_ } map { Log::Line->parse($_) } <DATA>;
$count{$_}++ for @paths;
my ($first, @rest) = sort { $count{$b} <=> $count{$a} || $a cmp $b } keys %count;

open(my $out, '>:utf8', '/tmp/report.txt') or die "cannot write: $!";
print {$out} "Report of @{[ scalar localtime ]}\n";
printf STDERR "%-20s %5d\n", $_, $count{$_} foreach @rest[0 .. 2], $rest[-1];
print $out <<"HEAD", <<~'TAIL';
Total: $count{$first} for $first, @rest[0, 1] and $rest[0][1]
    mail to admin\@example.org
HEAD
    Nothing $is read here.
    TAIL
close $out;

LINE: while (my $line = readline STDIN) {
    chomp $line;
    next LINE if $line =~ /^#/ or not $line;
    last unless $line !~ tr/a-z//;
    (my $copy = $line) =~ s{(\w+)}{ ucfirst $1 }gex;
    if ($copy eq 'quit' && -e "/tmp/$copy" || -d -r $copy) {
        redo;
    } elsif ($copy lt 'm' xor $copy ge 'x') {
        print "low\t", $copy x 3, "\x{263A}\e[0m";
    } else {
        say for 1 .. $#paths;
    }
} continue {
    $count{lines} += 1;
}

my @matrix = ([1, 2], [3.5e-1, 0b101]);
my $sum = 0;
for (my $i = 0; $i < @matrix; $i++) {
    $sum += $matrix[$i]->[0] ** 2 % 7 << 1 | 2 & ~3 ^ 4;
}
foreach my $row (@matrix) {
    $sum -= $row->@* ? $$row[0] : ${$row}[1];
}
until ($sum <= 0) { $sum--; }
do { $sum++ } while ($sum < 3);

my $add = sub ($x, $y) { $x + $y };
my %dispatch = (add => $add, name => \&Log::Line::parse, list => [1 .. 3]);
my $result = $dispatch{add}->(1, 2) . $dispatch{list}->@[0, 1];
my $last = $#{$matrix[0]} + LIMIT;
my $home = new Log::Line('home', 2);
my %settings = (%ENV, home => $home);
my ($min, $max) = @dispatch{qw(min max)};
my %copy = %dispatch{'add', 'name'};
delete $dispatch{list} if exists $dispatch{list};
my $object = Log::Line->new(level => 'debug');
$object->level = 'info';
my $method = $object->can('parse');
$object->$method("x", wantarray);
*alias = \&main::report;
&report($sum, "a $dispatch{name} and ${\ $object->level}");
report $sum, __PACKAGE__, __LINE__;
my $command = `ls -l $ENV{HOME}`;
my $pattern = qr/\b(?:$first|\Q$command\E)+?\d{2,}/ix;
my $quoted = q(it's) . qq{a "$first"} . 'plain \'text\'';
(my $rot = $quoted) =~ tr/a-zA-Z/n-za-mN-ZA-M/;
my @files = glob('*.log');
my $version = v5.36.0;
$sum = $sum == 3 ? "three" : $sum != 4 ? "other" : undef;

eval {
    require Log::File;
    die { code => 42 } if $@;
    1;
} or do {
    warn "failed: $@";
};

use feature 'try';
try {
    risky();
} catch ($problem) {
    warn $problem;
} finally {
    print "done\n";
}

sub report;
sub report {
    my $text = shift // 'nothing';
    local $_ = $text;
    my ($name) = caller(0);
    return wantarray ? ($name, $text) : $text;
}

format STDOUT =
@<<<<<<<< @>>>>>
$first,   $sum
.

write;
...;

=pod

=head1 NAME

logs - counts lines

=cut

exit 0 if $0 && @ARGV;

__DATA__
10.0.0.1 anna "GET /index.html"
10.0.0.2 - "GET /about"
