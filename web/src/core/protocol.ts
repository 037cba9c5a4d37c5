// The messages between the session and its client, as they travel.

export type Kind =
  | 'action' | 'label' | 'edit' | 'memo' | 'check' | 'radio' | 'combo' | 'spin' | 'list' | 'tree' | 'grid'
  | 'tabs' | 'tab' | 'group' | 'progress' | 'picture'

export type GroupRole = 'bar' | 'buttons' | 'fields' | 'status' | 'row' | 'column'

export type Value = string | number | boolean

export interface Column {
  title: string
  width: number
}

/** What any component may say of itself. Which of them count depends on its kind. */
export interface Properties {
  caption?: string
  hint?: string
  enabled?: boolean
  visible?: boolean
  icon?: string
  key?: string
  default?: boolean
  cancel?: boolean
  separator?: boolean
  role?: GroupRole
  text?: string
  value?: Value
  mode?: 'line' | 'password' | 'number'
  readOnly?: boolean
  /** A password is in there; its value never travels out. */
  filled?: boolean
  /** Enter in this edit acts on the edit itself, even where the window has a default action. */
  enter?: boolean
  max?: number
  min?: number
  items?: string[]
  editable?: boolean
  columns?: Column[]
  multi?: boolean
  sort?: number
  descending?: boolean
  empty?: string
  /** Id of the row that has the keyboard. */
  focused?: number | null
  total?: number
  /** Rows can be dragged. */
  drag?: boolean
  source?: string
}

export type NodeState = 'open' | 'closed' | 'leaf'

/** A cell of a grid that can be edited; a plain text stands for one that cannot. */
export interface EditableCell {
  text: string
  edit?: boolean
  pick?: string[]
  button?: boolean
}

export type Cell = string | EditableCell

export interface Row {
  id: number
  level?: number
  node?: NodeState
  icon?: string
  mark?: string
  cells: Cell[]
  selected?: boolean
}

export interface OpenChange {
  open: number
  class: string
  caption: string
  modal: boolean
  kind?: string
}
export type ComponentChange = { component: number; name: string; kind: string; in?: string | null } & Properties
export type SetChange = { set: number; name?: string } & Properties
export interface RowsChange {
  rows: number
  name: string
  total?: number
  first: number
  items: Row[]
}
/** A component that is no longer there. */
export interface RemoveChange { remove: number; name: string }
export interface CloseChange { close: number }
export interface FocusChange { focus: number; name?: string }
export interface RevealChange { reveal: number; name: string; index: number }
export interface FileChange { file: string }
export type ByeReason = 'taken' | 'ended' | 'idle' | 'crashed' | 'stuck' | 'stopped'
export interface ByeChange { bye: ByeReason }

export type Change =
  | OpenChange | ComponentChange | SetChange | RowsChange | RemoveChange | CloseChange | FocusChange | RevealChange | FileChange
  | ByeChange

export interface ChangesMessage {
  seq: number
  ack: number
  snapshot?: boolean
  changes: Change[]
}
export interface ErrorMessage { error: string; n?: number }
export type Message = Partial<ChangesMessage> & Partial<ErrorMessage> & { bye?: ByeReason }

export type SelectMode = 'set' | 'toggle' | 'range'

/** What a person did; the number is added on sending. */
export type ClientEvent =
  /** With a row and a column: the button in that cell of a grid. */
  | { do: 'act'; window: number; name: string; id?: number; column?: number }
  | { do: 'set'; window: number; name: string; value: Value }
  | { do: 'select'; window: number; name: string; id?: number; index?: number; mode?: SelectMode }
  | { do: 'activate'; window: number; name: string; id: number }
  | { do: 'toggle'; window: number; name: string; id: number }
  | { do: 'expandAll'; window: number; name: string; id?: number }
  | { do: 'mark'; window: number; name: string; id: number }
  | { do: 'edit'; window: number; name: string; id: number; column: number; value: string }
  | { do: 'drop'; window: number; name: string; ids: number[]; onto: number | null; name2?: string }
  | { do: 'sort'; window: number; name: string; column: number }
  | { do: 'view'; window: number; name: string; first: number; last: number }
  | { do: 'close'; window: number }
  | { do: 'language'; value: string }
  | { do: 'snapshot' }
  | { do: 'cancel' }
  | { do: 'quit' }
