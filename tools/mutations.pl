#!/usr/bin/perl
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Small changes to C++ sources: one operator, constant, text, condition or statement each.
#
# usage: mutations.pl pick SEED FILE         prints the numbers of all its changes, shuffled by SEED
#        mutations.pl draw SEED FILE...      the same for several sources, as "NUMBER FILE"
#        mutations.pl apply NUMBER IN OUT    writes IN with that change to OUT, and prints it
#
# The source is read line by line and must be formatted as in this tree: binary operators have
# spaces around them, templates and pointers don't; only a statement on a single line can be left
# out.
use strict;
use warnings;

my %operators = (
    '==' => '!=', '!=' => '==', '<' => '<=', '<=' => '<', '>' => '>=', '>=' => '>',
    '&&' => '||', '||' => '&&', '+' => '-', '-' => '+', '*' => '/', '/' => '*',
    '+=' => '-=', '-=' => '+=', '>>' => '<<', '?' => '|| true ?',
);
my $statement = qr/^\ {4,}(?!return\b|break\b|using\b|const\b|static\b|auto\b|else\b|if\b|for\b)
                   [\w*(].*(?:\(|\ =\ |\ <<\ |\+\+|--).*;$/x;
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

# Leaves out a statement that begins and ends on this line: a call, an assignment or the declaration
# of an object that is only used for its constructor and destructor.
sub dropped_statement {
    my ($before, $line) = @_;
    return if $line !~ $statement || $line =~ / = delete;/ || $before !~ /(?:[;{}:)]|else)$/;
    my ($indent) = $line =~ /^(\s*)/;
    return [length $indent, length($line) - length($indent) - 1, ';'];
}

# All changes of a source: [line index, offset, length, replacement] each. Code that is only for
# other systems stays unchanged.
sub changes_of {
    my @lines = @_;
    my @changes;
    my $code_before = '';
    my $is_foreign = 0;
    for my $index (0 .. $#lines) {
        $is_foreign = $1 eq 'ifdef _WIN32' if $lines[$index] =~ /^#(ifdef \w+|if\b|else|endif)/;
        next if $is_foreign;
        push @changes, map { [$index, @$_] } changes_of_line($lines[$index]),
            dropped_statement($code_before, $lines[$index]);
        my $code = $lines[$index] =~ s{\s*(?://.*)?$}{}r;
        $code_before = $code if $code ne '';
    }
    return @changes;
}

sub shuffled {
    my @list = @_;
    my @order;
    push @order, splice @list, int(rand @list), 1 while @list;
    return @order;
}

sub numbers_of {
    my ($path) = @_;
    my $count = () = changes_of(lines_of($path));
    return 0 .. $count - 1;
}

sub pick {
    my ($seed, $path) = @_;
    srand $seed;
    print map { "$_\n" } shuffled(numbers_of($path));
}

sub draw {
    my ($seed, @paths) = @_;
    srand $seed;
    print shuffled(map { my $path = $_; map { "$_ $path\n" } numbers_of($path) } @paths);
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
} elsif (($verb // '') eq 'draw' && @arguments > 1) {
    draw(@arguments);
} elsif (($verb // '') eq 'apply' && @arguments == 3) {
    apply(@arguments);
} else {
    die "usage: mutations.pl pick SEED FILE | draw SEED FILE... | apply NUMBER IN OUT\n";
}
