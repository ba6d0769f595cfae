#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Small changes to a C++ source: one operator, constant, text or condition each.
#
# usage: mutations.pl pick SEED FILE          the numbers of all its changes, in an order of the seed
#        mutations.pl apply NUMBER IN OUT     writes IN with that change to OUT, and says what it is
#
# The source is read line by line, formatted as in this tree: operators of two operands stand
# between blanks, templates and pointers don't.
use strict;
use warnings;

my %operators = (
    '==' => '!=', '!=' => '==', '<' => '<=', '<=' => '<', '>' => '>=', '>=' => '>',
    '&&' => '||', '||' => '&&', '+' => '-', '-' => '+', '*' => '/', '/' => '*',
    '+=' => '-=', '-=' => '+=', '>>' => '<<', '?' => '|| true ?',
);
my $operator = join '|', map { quotemeta } sort { length $b <=> length $a } keys %operators;

# The changes of a line: [offset, length, replacement] each.
sub changes_of_line {
    my ($line) = @_;
    my @changes;
    return @changes if $line =~ /^\s*#/;
    my $add = sub { push @changes, [@_] };
    pos($line) = 0;
    while (pos($line) < length $line) {
        my $at = pos $line;
        last if $line =~ m{\G//}gc;
        if ($line =~ /\G"((?:[^"\\]|\\.)*)"/gc) {
            $add->($at, pos($line) - $at, "\"~$1\"");
        } elsif ($line =~ /\G'(?:[^'\\]|\\.)'/gc) {
            $add->($at, pos($line) - $at, "'~'");
        } elsif ($line =~ /\G(?:if|while) (\((?:[^()]|(?1))*\))/gc) {
            $add->($at + length($&) - length($1), length $1, "(!$1)");
            pos($line) = $at + length($&) - length($1);
        } elsif ($line =~ /\G(true|false)\b/gc) {
            $add->($at, length $1, $1 eq 'true' ? 'false' : 'true');
        } elsif ($line =~ /\G(\d+\.\d+|\d+)\b/gc) {
            my $number = $1;
            $add->($at, length $number, $number =~ /\./ ? $number + 1 . ".0" : $number + 1);
        } elsif ($line =~ /\G(?<= )($operator)(?=\s)/gc) {
            $add->($at, length $1, $operators{$1});
        } elsif ($line =~ /\G(\+\+|--)/gc) {
            $add->($at, 2, $1 eq '++' ? '--' : '++');
        } elsif ($line =~ /\G!(?=[\w(])/gc) {
            $add->($at, 1, '');
        } else {
            $line =~ /\G(?:\w+|.|\n)/gc;
        }
    }
    return @changes;
}

sub lines_of {
    my ($path) = @_;
    open my $file, '<', $path or die "$path: $!\n";
    return <$file>;
}

# All changes of a source: [line index, offset, length, replacement] each.
sub changes_of {
    my @lines = @_;
    return map { my $index = $_; map { [$index, @$_] } changes_of_line($lines[$index]) } 0 .. $#lines;
}

sub pick {
    my ($seed, $path) = @_;
    my $count = () = changes_of(lines_of($path));
    my @numbers = 0 .. $count - 1;
    srand $seed;
    while (@numbers) {
        print splice(@numbers, int(rand @numbers), 1), "\n";
    }
}

sub apply {
    my ($number, $in, $out) = @_;
    my @lines = lines_of($in);
    my ($index, $offset, $length, $replacement) = @{ (changes_of(@lines))[$number] };
    my $before = $lines[$index];
    my $original = substr $lines[$index], $offset, $length, $replacement;
    printf "line %d: %s -> %s in %s\n", $index + 1, $original, $replacement || 'nothing',
        $before =~ s/^\s+|\s+$//gr;
    open my $file, '>', $out or die "$out: $!\n";
    print $file @lines;
}

my ($verb, @arguments) = @ARGV;
if (($verb // '') eq 'pick' && @arguments == 2) {
    pick(@arguments);
} elsif (($verb // '') eq 'apply' && @arguments == 3) {
    apply(@arguments);
} else {
    die "usage: mutations.pl pick SEED FILE | apply NUMBER IN OUT\n";
}
