#!/usr/bin/env ruby
# frozen_string_literal: true

require "json"
require_relative "../lib/ledger"

=begin
A ledger of what was lent to whom.
=end

BEGIN { $started = Time.now }

module Library
  LIMIT = 1_000
  GENRES = %w[poetry history].freeze
  STATES = %i(lent kept lost)

  class NotLent < StandardError
    def initialize(title, days: 14)
      super("#{title.inspect} was not lent\n")
      @days = days
    end
  end

  # A title and who has it.
  class Book
    include Comparable
    extend Forwardable

    attr_reader :title, :year
    attr_accessor :reader

    @@count = 0

    def self.parse(line, separator = ",", *rest, **options, &block)
      title, year = line.split(separator).map(&:strip)
      book = new(title, Integer(year))
      yield book if block_given?
      book
    end

    class << self
      def count = @@count

      alias size count
      undef to_s
    end

    def initialize(title, year)
      @title, @year = title, year
      @@count += 1
    end

    def <=>(other)
      year <=> other.year
    end

    def reader=(name)
      raise NotLent.new(@title, days: 0) unless name&.length.to_i > 0

      @reader = name
    end

    def [](index) = @title[index]

    def lent?
      !@reader.nil? && defined?(@days)
    end

    def to_json(*)
      { title:, "year" => @year, reader: @reader || "nobody", :old => @year < 1900 }.to_json
    end

    private

    def age(now = Time.now) = (now.year - @year).abs

    protected :reader=
  end

  def self.report(books, out: $stdout)
    books.sort.each_with_index do |book, index; width|
      width = index.zero? ? 10 : 0x1F
      out.puts format("%-*s\t%d", width, book.title, book.year)
      next if book.year === 1984
      break unless index <= LIMIT
    end
  end

  def classify(entry)
    case entry
    when 0, 1..9 then "digit"
    when /\A[a-z]+\d{2,}\z/i, nil
      :word
    when ->(value) { value.is_a?(Book) } then :"a book"
    else
      "unknown"
    end
  end

  def match(config)
    case config
    in { name: String => name, tags: [first, *] } if name != ""
      "#{name}: #{first}"
    in [Integer | Float => number, nil]
      number.to_s
    in { mode: "fast" }
      ?f
    end
  end

  def fetch(url)
    attempts ||= 0
    response = Net::HTTP.get(URI(url))
    JSON.parse(response, symbolize_names: true)
  rescue JSON::ParserError, Timeout::Error => error
    attempts += 1
    retry if attempts < 3 and error.message !~ /fatal/
    warn "gave up: #{error.message}" rescue nil
  else
    true
  ensure
    puts 'done', __method__, __FILE__, __LINE__
  end
end

def numbers
  [1, -2.5e3, 0b1010, 3r, 2i, 1e-9].each { |n| print n ** 2 % 7, "\s" }
  for i in 0...3 do
    redo if i == 7
  end
  until $started.nil? or not false
    $started = nil
  end
  begin
    a, (b, *c) = 1, [2, 3]
  end while a > 1
  double = ->(x, y = 2) { x * y }
  twice = lambda do |(left, right), key: 1|
    left << right
  end
  double.(2) + double[3] - twice.call([1, 2])
  if a then b elsif c then a else b end
end

text = <<~TEXT + `date +%Y`
  Dear #{ENV.fetch("USER")},
    you have %d books.\t
TEXT

plain = %q(it's) + "caf\u00e9" ':)' "\x00"
symbol = :"with space" if text =~ /#{plain}\s+(?<name>\w+)/x
private_constant :LIMIT
loop { throw :done } unless symbol
Library::Book.parse("Emma, 1815") { |book| p book }
END { puts "bye" }
