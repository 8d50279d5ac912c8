#!/usr/bin/env ocaml
(* A small calculator and what it stands on. *)

open Printf
module Strings = Map.Make (String)

(** What can be calculated. *)
type expression =
  | Number of float
  | Name of string
  | Sum of expression * expression
  | Let of { name : string; value : expression; mutable uses : int }
[@@deriving show, eq]

type 'a tree = Leaf | Node of 'a tree * 'a * 'a tree
type ('key, +'value) table = ('key * 'value) list
type colour = [ `Red | `Green of int | `Mixed of colour * colour ]
type point = { x : float; y : float; mutable label : string option }
type _ witness = Int : int witness | Text : string witness
and handler = ?verbose:bool -> name:string -> unit -> (int, string) result

exception Unknown of string
exception Division = Division_by_zero

module type STORE = sig
  type t
  type key = private string

  val empty : t
  val find : key -> t -> float option
  val ( + ) : t -> t -> t
end

module Store : STORE with type key = string = struct
  type t = float Strings.t
  type key = string

  let empty = Strings.empty
  let find name store = Strings.find_opt name store
  let ( + ) left right = Strings.union (fun _ a _ -> Some a) left right
end

module Logged (S : STORE) = struct
  include S

  let find name store =
    printf "looking for %s\t%5.2f\n" name 0x1Fp0;
    S.find name store
end

external length : string -> int = "%string_length"

let rec evaluate ?(depth = 0) ~names = function
  | Number value -> value
  | Name name when depth < 1_000 -> (
      match List.assoc_opt name names with
      | Some value -> value
      | None -> raise (Unknown name))
  | Name _ -> failwith "too deep"
  | Sum (left, right) -> evaluate ~names left +. evaluate ~names right
  | Let { name; value; _ } as all ->
      let names = (name, evaluate ~depth:(depth + 1) ~names value) :: names in
      ignore all;
      evaluate ~names (Name name)

let sum numbers = List.fold_left ( + ) 0 numbers
let average (numbers : int list) : float = float_of_int (sum numbers) /. 2.5e-1
let compose f g x = x |> g |> f
let show number = print_endline @@ string_of_int number
let negative = -1 and hex = 0xFFL and binary = 0b1010n
let letter = 'a' and newline = '\n' and code = '\065'
let quoted = {sql|SELECT "name" FROM plants|sql}
let text = "caf\xe9 \"quoted\" \u{1F600} and %d%%"

let ( let* ) = Result.bind
let ( >>= ) = Option.bind

let parse line =
  let* key, value =
    match String.split_on_char '=' line with
    | [ key; value ] -> Ok (String.trim key, value)
    | [] | [ _ ] | _ :: _ :: _ -> Error (`Malformed line)
  in
  let* number = try Ok (float_of_string value) with Failure _ -> Error `Nan in
  Ok { x = number; y = 0.; label = Some key }

let loop (count : int ref) =
  let total = ref 0 in
  while !count > 0 && not (!total >= 10 || false) do
    total := !total + !count;
    decr count
  done;
  for i = 1 to 3 do
    if i mod 2 = 0 then printf "%d\n" i else ()
  done;
  for i = 9 downto 0 do
    assert (i <> 10)
  done;
  let cells = [| 1; 2; 3 |] in
  cells.(0) <- cells.(1) lxor (1 lsl 3);
  let point = { (origin ()) with x = 1.; y = 2. } in
  point.label <- None;
  begin
    match point with
    | { x; label = Some ("a" | "b"); _ } when x == 1. -> ()
    | exception Not_found -> ()
  end

class virtual shape (name : string) =
  object (self)
    val mutable area = 0.
    method virtual draw : unit -> unit
    method name = name
    method private grow by = area <- area *. by
    method twice = self#grow 2.; {< area = area >}
    initializer printf "made %s\n" self#name
  end

class circle radius =
  object
    inherit shape "circle" as super
    method draw () = print_string super#name
    method radius : float = radius
  end

let shapes : shape list = [ (new circle 1.5 :> shape) ]
let lazily = lazy (List.length shapes)
let forced = match lazily with (lazy n) -> n
let packed = (module Store : STORE)

let rec pick : type a. a witness -> a = function
  | Int -> 42
  | Text -> "forty-two"

let%test "sums" = sum [ 1; 2 ] = 3
let () = (show [@inlined]) 3; [%log "done"]
let poly = (`Green 3 : [> colour ])
let local = List.(map (fun x -> x * 2) [ 1; 2 ]) @ [ 3 ]
let matched = function 'a' .. 'z' -> true | #letter | _ -> false;;

[@@@warning "-32"]

[%%test let one = 1]

let page = {%html|<b>bold</b>|}

{%%sql|DELETE FROM plants|}

#load "unix.cma";;
