/** What the server says of the login that the cookie stands for. */
export interface LoginInfo {
  login: string
  name: string
  language: string
}

export interface Credentials {
  login: string
  password: string
  language: string
  newPassword?: string
}

export type LoginOutcome =
  | { is: 'in'; info: LoginInfo }
  | { is: 'refused'; disabled: boolean }
  /** A new password is needed; with a detail, the one that was given is not taken. */
  | { is: 'reset'; detail: string }
  | { is: 'slowed'; seconds: number }
  | { is: 'failed'; detail: string }

export interface Reply {
  status: number
  ok: boolean
  headers: { get(name: string): string | null }
  json(): Promise<unknown>
}

export type Fetch = (address: string, options?: { method?: string; headers?: Record<string, string>; body?: string }) => Promise<Reply>

const DEFAULT_WAIT = 5

/** The few HTTP calls beside the line to the session. */
export class Api {
  constructor(private readonly fetch: Fetch) {}

  /** Null when nobody is logged in; throws when the server cannot be reached. */
  async session(): Promise<LoginInfo | null> {
    const reply = await this.fetch('/api/session')
    if (reply.ok) return (await reply.json()) as LoginInfo
    if (reply.status === 401) return null
    throw new Error(`The server answered with status ${reply.status}.`)
  }

  async login(credentials: Credentials): Promise<LoginOutcome> {
    const reply = await this.fetch('/api/login', {
      method: 'POST',
      headers: { 'Content-Type': 'application/json' },
      body: JSON.stringify(credentials),
    })
    const body = await bodyOf(reply)
    if (reply.ok) return { is: 'in', info: body as unknown as LoginInfo }
    const detail = typeof body['detail'] === 'string' ? body['detail'] : ''
    if (reply.status === 401) return { is: 'refused', disabled: body['reason'] === 'disabled' }
    if (reply.status === 403 && body['reset'] === true) return { is: 'reset', detail: '' }
    if (reply.status === 422) return { is: 'reset', detail }
    if (reply.status === 429) return { is: 'slowed', seconds: Number(reply.headers.get('Retry-After')) || DEFAULT_WAIT }
    return { is: 'failed', detail: detail || `HTTP ${reply.status}` }
  }

  async logout(): Promise<void> {
    await this.fetch('/api/logout', { method: 'POST' })
  }
}

async function bodyOf(reply: Reply): Promise<Record<string, unknown>> {
  const body = await reply.json().catch(() => ({}))
  return typeof body === 'object' && body !== null ? (body as Record<string, unknown>) : {}
}
