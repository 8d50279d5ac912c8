port module Garden exposing (Model, Msg(..), Plant, main, view)

{-| A garden that grows while it is looked at.

@docs Model, view

-}

import Browser
import Dict exposing (Dict)
import Html as H exposing (Html, button, div, text)
import Html.Attributes exposing (class, style)
import Html.Events exposing (onClick)
import Json.Decode as Decode exposing (Decoder, field, (|=))
import Time



-- MODEL


type alias Plant =
    { name : String
    , height : Float
    , tags : List String
    , position : { x : Int, y : Int }
    }


type alias Model =
    { plants : Dict Int Plant
    , selected : Maybe Int
    , time : Time.Posix
    }


{-| What may happen. -}
type Msg
    = Tick Time.Posix
    | Select Int
    | Watered (Result String Float)
    | Renamed Int { name : String }
    | NoOp


type Tree a
    = Leaf
    | Node (Tree a) a (Tree a)


type alias Named r =
    { r | name : String }


port save : String -> Cmd msg


port loaded : (Decode.Value -> msg) -> Sub msg


main : Program () Model Msg
main =
    Browser.element
        { init = init
        , update = update
        , view = view
        , subscriptions = \_ -> Time.every 1000 Tick
        }


init : () -> ( Model, Cmd Msg )
init flags =
    ( { plants = Dict.empty, selected = Nothing, time = Time.millisToPosix 0 }
    , Cmd.none
    )


update : Msg -> Model -> ( Model, Cmd Msg )
update msg ({ plants, selected } as model) =
    case msg of
        Tick time ->
            ( { model | time = time, plants = Dict.map (\_ plant -> grow 0.5 plant) plants }, Cmd.none )

        Select id ->
            if Dict.member id plants && selected /= Just id then
                ( { model | selected = Just id }, save ("selected " ++ String.fromInt id) )

            else
                ( model, Cmd.none )

        Watered (Ok litres) ->
            ( model, Cmd.none )

        Renamed 0 _ ->
            ( model, Cmd.none )

        _ ->
            ( model, Cmd.none )


grow : Float -> { a | height : Float } -> { a | height : Float }
grow by plant =
    { plant | height = min 0xFF (plant.height + by * -1.5e3 / 2) }


depth : Tree comparable -> Int
depth tree =
    case tree of
        Leaf ->
            0

        Node left _ right ->
            1 + max (depth left) (depth right)


sumOf : List number -> number
sumOf numbers =
    case numbers of
        [] ->
            0

        [ one ] ->
            one

        first :: ( rest as others ) ->
            first + sumOf rest


decoder : Decoder Plant
decoder =
    let
        place =
            Decode.map2 (\x y -> { x = x, y = y })
                (field "x" Decode.int)
                (field "y" Decode.int)

        ( width, height ) =
            ( 3, 4 )
    in
    Decode.map4 Plant
        (field "name" Decode.string)
        (field "height" Decode.float)
        (field "tags" (Decode.list Decode.string))
        (field "position" place)


view : Model -> Html Msg
view model =
    div [ class "garden", style "color" "green" ]
        [ model.plants
            |> Dict.values
            |> List.filter (.height >> (<) 2)
            |> List.sortBy .name
            |> List.map viewPlant
            |> div []
        , button [ onClick NoOp ] [ text <| "It's \"time\"\t\u{1F331}\n" ]
        ]


viewPlant : Plant -> Html msg
viewPlant { name, height } =
    let
        isTall =
            height >= 3 || not False

        initial =
            case String.uncons name of
                Just ( 'A', _ ) ->
                    '\n'

                Just ( char, _ ) ->
                    char

                Nothing ->
                    '?'

        flag =
            case isTall of
                True ->
                    1

                False ->
                    0
    in
    H.p [] [ text (String.fromChar initial ++ """
  A long "text",
  of several lines.
""") ]



{- Nothing else {- is known -} here. -}


shader =
    [glsl| void main() { gl_Position = vec4(0.0); } |]
