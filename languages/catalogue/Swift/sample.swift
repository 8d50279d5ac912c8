#!/usr/bin/env swift
// A shelf of recipes.

import Foundation
import class UIKit.UIColor
@testable import Kitchen

/// Anything that can be cooked.
public protocol Cookable: AnyObject, Sendable {
    associatedtype Ingredient: Hashable where Ingredient: Codable
    static var cuisine: String { get }
    var minutes: Int { get set }
    init?(name: String)
    mutating func cook(for guests: Int, _ notes: String...) async throws -> [Ingredient]
    subscript(index: Int) -> Ingredient? { get }
}

/** How hot
    a dish is. */
enum Heat: Int, CaseIterable {
    case mild = 1, medium
    case hot(scoville: Double, note: String = "careful")
    indirect case mixed(Heat, Heat)

    var isHarmless: Bool { self == .mild }
}

precedencegroup Mixing {
    higherThan: AdditionPrecedence
    associativity: left
}

infix operator <+>: Mixing
prefix operator +++

func <+> (left: Heat, right: Heat) -> Heat { .mixed(left, right) }

@MainActor
public final class Recipe<Step>: Cookable, Identifiable where Step: Equatable {
    public typealias Ingredient = String
    public static let cuisine = "home"
    private(set) var steps: [Step] = []
    fileprivate lazy var cache: [String: (count: Int, unit: String?)] = [:]
    weak var author: Author?
    unowned let shelf: Shelf
    @Published var minutes: Int = 0x1F {
        willSet { print("about to be \(newValue)") }
        didSet(old) {
            guard old != minutes, let author else { return }
            author.notify(self, after: old)
        }
    }

    public convenience required init?(name: String) {
        if name.isEmpty { return nil }
        self.init(shelf: Shelf.shared)
    }

    init(shelf: Shelf) {
        self.shelf = shelf
        super.init()
    }

    deinit { cache.removeAll(keepingCapacity: false) }

    public var total: Double {
        get { Double(minutes) * 1.5e-3 + 0b101 / 0o7 }
        set(value) { minutes = Int(value) }
    }

    override public func cook(for guests: Int, _ notes: String...) async throws -> [Ingredient] {
        defer { minutes += 1 }
        let names = notes.map { $0.uppercased() }.filter({ note in note != "" && !note.hasPrefix("-") })
        for (index, name) in names.enumerated() where index < 10 {
            try await shelf.fetch(name, timeout: .seconds(5))
            if index % 2 == 0 || index >= 7 { continue }
        }
        outer: while true {
            repeat {
                minutes -= 1
                if minutes <= 0 { break outer }
            } while minutes > 0
        }
        let sorted = names.sorted(by: { (a: String, b: String) -> Bool in a < b })
        return sorted
    }

    public subscript(index: Int) -> Ingredient? { cache.keys.first }
}

extension Recipe: CustomStringConvertible {
    public var description: String {
        let raw = #"no \n escape, \#(minutes) min"#
        let text = """
            Recipe \(steps.count > 3 ? "long" : "short")\t\u{1F35C}
              for "\(author?.name ?? "nobody")"
            """
        return text + raw
    }
}

struct Pair<A, B: Comparable> {
    let first: A
    var second: B

    static func == (lhs: Self, rhs: Self) -> Bool { lhs.second == rhs.second }
}

actor Kitchen {
    nonisolated let id = UUID()
    func serve<T>(_ dish: T, to table: inout Int) rethrows -> some View where T: Cookable {
        table &+= 1
        return Text("served").padding([.top, .leading], 8).font(.body)
    }
}

func classify(_ value: Any) -> String {
    switch value {
    case let number as Int where number > 0:
        fallthrough
    case is Double, 1...9:
        return "number"
    case Heat.hot(let scoville, _):
        return "hot \(scoville)"
    case .some(let wrapped):
        return String(describing: wrapped)
    case nil:
        return ""
    @unknown default:
        return #function
    }
}

func load(from path: String, completion: @escaping (Result<Data, any Error>) -> Void) throws {
    let url = URL(fileURLWithPath: path)
    let pattern = #/^(\d+)-(?<name>\w+)$/#
    let pair = (first: 1, second: \Pair<Int, Int>.first)
    let keyPath = \Recipe<String>.minutes
    do {
        let data = try Data(contentsOf: url)
        Task { [weak self, count = data.count] in
            await self?.finish(count)
            completion(.success(data))
        }
    } catch let error as CocoaError {
        throw error
    } catch {
        let old = try? String(contentsOfFile: path)
        print(old!.count, error as! NSError, pattern, keyPath, old === nil, ~1 << 2 & 3 | 4 ^ 5 >> 1)
    }
    #if os(Linux) && DEBUG
    let platform = "linux"
    #elseif swift(>=5.9)
    let platform = "other"
    #else
    #error("too old")
    #endif
    if #available(iOS 17, *), case .hot(let level, note: _) = heat { print(level) }
    let path = #keyPath(Recipe.name)
    let type: Any.Type = Int.self
    let half = [1, 2, 3][..<2], rest = 2...
    let view = #Preview { Text("x") }
    let action = #selector(Recipe.tap)
}

@freestanding(expression)
macro stringify<T>(_ value: T) -> (T, String) = #externalMacro(module: "Macros", type: "Stringify")
